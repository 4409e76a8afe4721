// NEW, OPEN, SAVE, SAVEAS, QSAVE, CLOSE and QUIT.
#include "host/application/session_impl.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

Session& session() { return *currentSession(); }

CommandStatus statusOf(const Outcome& outcome) {
    return outcome ? CommandStatus::Done : session().impl().fail(outcome);
}

/// Asks for a file name. None on Enter.
PromptStatus promptFile(const std::wstring& question, std::string& path) {
    const Answer answer = prompt(question);
    if (answer.kind == Answer::Kind::Enter) return PromptStatus::None;
    if (answer.kind != Answer::Kind::Text) return PromptStatus::Cancel;
    path = toUtf8(answer.text);
    return path.empty() ? PromptStatus::None : PromptStatus::Ok;
}

/// Text behind the last dot of the file name, in upper case; empty without one.
std::wstring extensionOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
    return foldCase(fromUtf8(path.substr(dot + 1)));
}

/// Saves under a name that is asked for.
CommandStatus saveUnderName(bool keepName) {
    const HostDocument* document = session().impl().documents.current();
    if (document == nullptr) return statusOf({"no drawing is open", 4});
    std::string path;
    const PromptStatus status =
        promptFile(L"\nSave drawing as <" + std::wstring(document->fileName()) + L">: ", path);
    if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
    if (status == PromptStatus::Ok) {
        const std::wstring extension = extensionOf(path);
        if (extension == L"DWG") {
            return statusOf({path + ": only DXF can be written; name the file .dxf", 4});
        }
        if (extension.empty()) path += ".dxf";
    }
    return statusOf(session().impl().save(path, keepName));
}

CommandStatus runNew() { return statusOf(session().newDrawing()); }

CommandStatus runOpen() {
    std::string path;
    const PromptStatus status = promptFile(L"\nEnter name of drawing to open: ", path);
    if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
    if (status == PromptStatus::None) return statusOf({"the name of a drawing is missing", 3});
    return statusOf(session().openDrawing(path));
}

CommandStatus runSave() { return saveUnderName(true); }
CommandStatus runSaveAs() { return saveUnderName(false); }

CommandStatus runQsave() {
    const HostDocument* document = session().impl().documents.current();
    // Of a script the next line would become the name, and that line is a command.
    const bool asks = inputSource() != nullptr && inputSource()->interactive();
    if (asks && document != nullptr && document->path().empty()) return saveUnderName(false);
    return statusOf(session().saveDrawing({}));
}

CommandStatus runClose() { return statusOf(session().closeDrawing()); }

CommandStatus runQuit() {
    session().impl().quit = true;
    return CommandStatus::Done;
}

const BuiltinCommand kCommands[] = {
    {L"NEW", 0, runNew, L"opens a new, empty drawing"},
    {L"OPEN", 0, runOpen, L"opens a drawing: file"},
    {L"SAVE", 0, runSave, L"saves a copy of the drawing: file"},
    {L"SAVEAS", 0, runSaveAs, L"saves the drawing under a new name: file"},
    {L"QSAVE", 0, runQsave, L"saves the drawing under its name"},
    {L"CLOSE", 0, runClose, L"closes the drawing without saving it"},
    {L"QUIT", 0, runQuit, L"ends the program without saving"},
};

}  // namespace

void registerDocumentCommands() { registerBuiltins(kCommands, std::size(kCommands)); }

}  // namespace host
