// Tries the host on a script that may hold anything.
#include "script_trial.h"

#include <iterator>

#include "common/drawing_trial.h"
#include "host/application/session.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/dxf/check/drawing_check.h"
#include "host/objectarx/database.h"
#include "host/scripting/script.h"
#include "host/text/text_codec.h"

namespace {

using namespace host;

CommandStatus refuse() { return CommandStatus::Failed; }

/// In place of the commands that read and write files and load code.
const CommandTable kRefused = {
    {L"OPEN", 0, refuse, L""},  {L"SAVE", 0, refuse, L""}, {L"SAVEAS", 0, refuse, L""},
    {L"QSAVE", 0, refuse, L""}, {L"ARX", 0, refuse, L""},
};

/// Two of what commands treat alike, and one each of what they treat in its own way.
constexpr wchar_t kBegin[] =
    LR"(LINE 0,0 10,0 10,10

CIRCLE 20,5 3
TEXT 30,0 2.5 0 some text
POINT 40,1
)";

/// A script that ends when it has made much: doubling what is there is no fault of the host.
class ShortScript : public ScriptSource {
  public:
    ShortScript(std::wstring text, const Session& session)
        : ScriptSource(std::move(text)), m_session(session) {}
    Answer next(const std::wstring& prompt, InputUnit unit) override {
        if (large()) return {Answer::Kind::End, {}};
        return ScriptSource::next(prompt, unit);
    }

  private:
    bool large() const {
        std::size_t objects = 0;
        for (const HostDocument* document : m_session.documents.all())
            objects += document->database()->store().count();
        return objects > 3000;
    }

    const Session& m_session;
};

/// What is wrong with a drawing that commands have made from a sound one.
std::string faultOf(Store& store, const std::string& folder) {
    const std::vector<Finding> findings = checkDrawing(store);
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::Error) return "damaged: " + finding.text;
    }
    return trial::faultOfDrawing(store, findings, folder);
}

/// What the host says of a command of its own that an exception left.
std::string thrown() {
    for (const std::wstring& text : effectTexts(EffectKind::CommandLine)) {
        for (const BuiltinCommand* command : builtinCommands()) {
            const std::wstring words = L"\n" + std::wstring(command->name) + L" failed";
            if (text.compare(0, words.size(), words) == 0) return "an exception:" + toUtf8(text);
        }
    }
    return {};
}

std::string faultOfSession(std::string_view bytes, const std::string& folder) {
    Session session;
    registerBuiltins(kRefused);
    session.newDrawing();
    session.runScript(kBegin);
    std::string fault;
    session.diagnostics = [&](const std::string& line) {
        if (!trial::isClearLine(line)) fault = "unclear: " + line;
    };
    ShortScript script(fromUtf8(bytes), session);
    session.runInput(script, false, [] { return "tried.scr:1"; });
    if (fault.empty()) fault = thrown();
    for (std::size_t i = 0; i < session.documents.count() && fault.empty(); ++i)
        fault = faultOf(session.documents.at(i)->database()->store(), folder);
    return fault;
}

}  // namespace

std::string faultOfScript(std::string_view bytes, const std::string& folder) {
    std::string fault = faultOfSession(bytes, folder);
    for (const std::string& of : moduleFaults())
        fault += "module fault: " + of + "\n";
    clearModuleFaults();
    clearEffects();
    return fault;
}
