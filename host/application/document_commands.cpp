// NEW, OPEN, SAVE, SAVEAS, QSAVE, CLOSE and QUIT.
#include "host/application/session.h"
#include "host/control/effects.h"
#include "host/control/scoped_value.h"
#include "host/dxf/file/file_access.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/state/sysvars.h"
#include "host/scripting/script.h"
#include "host/text/numbers.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

Session& session() { return *currentSession(); }

CommandStatus statusOf(const Outcome& outcome) {
    return outcome ? CommandStatus::Done : session().fail(outcome);
}

/// Text behind the last dot of the file name, in upper case; empty without one.
std::wstring extensionOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    const std::size_t dot = path.rfind('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
    return foldCase(fromUtf8(path.substr(dot + 1)));
}

/// The answers in "DXF 16 my plan.dxf", which a person has typed in one line, as a script gives
/// them; empty for any other text.
std::string longForm(const std::string& typed) {
    const bool begins = foldCase(fromUtf8(typed.substr(0, 4))) == L"DXF ";
    const std::size_t blank = begins ? typed.find(' ', 4) : std::string::npos;
    if (blank == std::string::npos || !parseInteger(typed.substr(4, blank - 4))) return {};
    return typed.substr(0, blank + 1) + '"' + typed.substr(blank + 1) + '"';
}

/// The name to save under. The real host asks for a format first and for the places of numbers,
/// which are always written in full here: both may be given, so that a script runs in either.
PromptStatus promptSaveName(const HostDocument& document, std::string& path) {
    const std::wstring question =
        L"\nSave drawing as <" + std::wstring(document.fileName()) + L">: ";
    PromptStatus status = promptFile(question, path);
    if (const std::string form = longForm(path); !form.empty()) {
        ScriptSource answers(fromUtf8(form));
        const ScopedValue<InputSource*> scripted(inputSource(), &answers);
        status = promptSaveName(document, path);
    }
    if (status != PromptStatus::Ok || foldCase(fromUtf8(path)) != L"DXF") return status;
    constexpr double kMostPlaces = 16;
    double places = kMostPlaces;
    const PromptStatus given =
        promptReal(L"\nEnter decimal places of accuracy (0 to 16) <16>: ", places);
    if (given == PromptStatus::Cancel) return given;
    if (!(places >= 0 && places <= kMostPlaces)) {
        wrongAnswer(L"Decimal places go from 0 to 16");
        return PromptStatus::Cancel;
    }
    return promptFile(question, path);
}

/// A question that a script is not asked: its answer is no line of one.
std::optional<std::size_t> promptPerson(const std::wstring& question,
                                        const std::vector<std::wstring>& words,
                                        std::size_t standard) {
    const auto answer = promptWord(question, words, standard);
    inputSource()->disregardAnswer();
    return answer;
}

bool personAnswers() { return inputSource() != nullptr && inputSource()->interactive(); }

/// A person is asked before another file is replaced; EXPERT 2 and above keeps from asking.
bool mayReplace(const HostDocument& document, const std::string& path) {
    constexpr int kNotAsked = 2;
    if (!personAnswers() || sysvarInteger(L"EXPERT") >= kNotAsked) return true;
    if (placeOf(path) == FilePlace::None || fromUtf8(absolutePath(path)) == document.path())
        return true;
    const std::wstring question = L"\n" + fromUtf8(path) + L" exists. Replace it? [Yes/No] <No>: ";
    return promptPerson(question, {L"Yes", L"No"}, 1) == 0;
}

/// Saves the current drawing, under its own name when `path` is empty, and says where.
CommandStatus save(const std::string& path, bool keepName) {
    const Outcome outcome = session().saveDrawing(path, keepName);
    const HostDocument* document = session().documents.current();
    if (outcome)
        printLine(L"Saved as " + (keepName && !path.empty() ? fromUtf8(path) : document->path()) +
                  L".");
    return statusOf(outcome);
}

/// Saves under a name that is asked for.
CommandStatus saveUnderName(bool keepName) {
    const HostDocument* document = session().documents.current();
    if (document == nullptr) return statusOf({"no drawing is open", kUnwritable});
    std::string path;
    const PromptStatus status = promptSaveName(*document, path);
    if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
    if (status == PromptStatus::None) path = toUtf8(document->fileName());
    const std::wstring extension = extensionOf(path);
    if (extension == L"DWG") {
        return statusOf({path + ": only DXF can be written; name the file .dxf", kUnwritable});
    }
    if (extension.empty()) path += ".dxf";
    if (!mayReplace(*document, path)) return CommandStatus::Cancelled;
    return save(path, keepName);
}

CommandStatus saveCurrent() {
    const HostDocument* document = session().documents.current();
    // Of a script the next line would become the name, and that line is a command.
    const bool asks = document != nullptr && document->path().empty() && personAnswers();
    return asks ? saveUnderName(false) : save({}, false);
}

/// Asks a person whether the current drawing is to be saved before it goes. Done when it may go.
CommandStatus letGo(const HostDocument& document) {
    if (!document.changed() || !personAnswers()) return CommandStatus::Done;
    const std::wstring question = L"\nSave the changes to " + std::wstring(document.fileName()) +
                                  L"? [Yes/No/Cancel] <Yes>: ";
    const auto answer = promptPerson(question, {L"Yes", L"No", L"Cancel"}, 0);
    if (answer == 0) return saveCurrent();
    return answer == 1 ? CommandStatus::Done : CommandStatus::Cancelled;
}

CommandStatus runNew() { return statusOf(session().newDrawing()); }

CommandStatus runOpen() {
    std::string path;
    const PromptStatus status = promptFile(L"\nEnter name of drawing to open: ", path);
    if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
    if (status == PromptStatus::None)
        return statusOf({"the name of a drawing is missing", kUnreadable});
    return statusOf(session().openDrawing(drawingPath(path)));
}

CommandStatus runSave() { return saveUnderName(true); }
CommandStatus runSaveAs() { return saveUnderName(false); }
CommandStatus runQsave() { return saveCurrent(); }

CommandStatus runClose() {
    const HostDocument* document = session().documents.current();
    const CommandStatus asked = document != nullptr ? letGo(*document) : CommandStatus::Done;
    return asked == CommandStatus::Done ? statusOf(session().closeDrawing()) : asked;
}

CommandStatus runQuit() {
    Documents& documents = session().documents;
    HostDocument* const current = documents.current();
    CommandStatus asked = CommandStatus::Done;
    for (std::size_t i = 0; i < documents.count() && asked == CommandStatus::Done; ++i) {
        HostDocument& document = *documents.at(i);
        if (document.changed() && personAnswers())
            documents.setCurrent(&document);  // the one that a save takes
        asked = letGo(document);
    }
    documents.setCurrent(current);
    session().quit = asked == CommandStatus::Done;
    return asked;
}

}  // namespace

const CommandTable kDocumentCommands = {
    {L"NEW", 0, runNew, L"opens a new, empty drawing"},
    {L"OPEN", 0, runOpen, L"opens a drawing: file"},
    {L"SAVE", 0, runSave, L"saves a copy of the drawing: file"},
    {L"SAVEAS", 0, runSaveAs,
     L"saves the drawing under a new name: file; or DXF, decimal places, file"},
    {L"QSAVE", 0, runQsave, L"saves the drawing under its name"},
    {L"CLOSE", 0, runClose, L"closes the drawing; asks about changes, but in a script drops them"},
    {L"QUIT", 0, runQuit, L"ends the program; asks about changes, but in a script drops them"},
};

}  // namespace host
