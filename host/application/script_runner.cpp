// The command loop: commands, gestures and LISP calls at the empty prompt.
#include <algorithm>

#include "host/application/gestures.h"
#include "host/application/session.h"
#include "host/control/effects.h"
#include "host/control/scoped_value.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_names.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/notify.h"
#include "host/scripting/script.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/lisp_cursor.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Passes answers on and remembers that the input is over.
class WatchedSource : public InputSource {
  public:
    explicit WatchedSource(InputSource& source) : m_source(source), m_inUse(inputSource(), this) {}
    Answer next(const std::wstring& prompt, InputUnit unit) override {
        const Answer answer = m_source.next(prompt, unit);
        m_over = m_over || answer.kind == Answer::Kind::End;
        return answer;
    }
    bool interactive() const override { return m_source.interactive(); }
    void disregardAnswer() override { m_source.disregardAnswer(); }
    bool over() const { return m_over; }

  private:
    InputSource& m_source;
    ScopedValue<InputSource*> m_inUse;
    bool m_over = false;
};

CommandStatus printEntityName(Session& session, const std::wstring& handle) {
    const HostDocument* document = session.documents.current();
    if (document == nullptr) return session.fail({"no drawing is open"});
    const ObjectBody* body = document->database()->store().byHandle(toUtf8(handle));
    if (body == nullptr) {
        printLine(L"nil");
        return session.fail({"no object has the handle " + toUtf8(handle) + " in this drawing"});
    }
    printLine(L"<Entity name: " + handleText(*body) + L">");
    return CommandStatus::Done;
}

/// One command, gesture or LISP call. A command becomes the `last` one, which Enter repeats.
CommandStatus runOne(Session& session, const std::wstring& text, std::wstring& last) {
    if (text.empty()) return CommandStatus::Unknown;
    if (text.front() == L'(') {
        const auto handle = parseHandent(text);
        if (handle) return printEntityName(session, *handle);
        print(L"\n");  // the person has pressed Enter, and the function prints where the cursor is
        return session.callLisp(text);
    }
    const std::optional<CommandStatus> gesture = runGesture(session, foldCase(text));
    if (gesture) return *gesture;
    const CommandStatus status = runCommand(text);
    if (status != CommandStatus::Unknown) last = text;
    return status;
}

}  // namespace

CommandStatus Session::fail(const Outcome& outcome) {
    noteProblem(fromUtf8(outcome.error));
    exitStatus = std::max(exitStatus, outcome.status);
    return CommandStatus::Failed;
}

void Session::reportCommand(const std::string& where, const std::wstring& command,
                            CommandStatus status) {
    exitStatus = std::max(exitStatus, kFailed);
    std::string line = where.empty() ? where : where + ": ";
    const std::string problem = toUtf8(takeProblem());
    if (!problem.empty() && problemWasPrinted() && !diagnostics) return;
    const std::string name = toUtf8(command);
    if (!command.empty() && command.front() == L'(') {
        line += problem;
    } else if (status == CommandStatus::Unknown) {
        line += "unknown command \"" + name + "\"; " + toUtf8(hintAt(command, typableNames())) +
                "HELP lists the commands";
    } else {
        line += toUtf8(foldCase(command));
        line += status == CommandStatus::Cancelled ? " was cancelled" : " failed";
        if (!problem.empty()) line += ": " + problem;
    }
    if (diagnostics)
        diagnostics(oneLine(fromUtf8(line)));
    else
        printLine(fromUtf8(line));
}

CommandStatus Session::runInput(InputSource& source, bool stopAtFailure,
                                const std::function<std::string()>& where) {
    WatchedSource input(source);
    CommandStatus result = CommandStatus::Done;
    std::wstring last;
    while (!quit && !input.over()) {
        idle();
        print(L"\nCommand: ");
        const Answer answer = answerAtPrompt(input, L"Command: ", InputUnit::Token);
        if (answer.kind == Answer::Kind::Cancel) pickNothing();
        std::wstring text = answer.text;
        if (answer.kind == Answer::Kind::Enter && !last.empty()) print(text = last);
        if (answer.kind != Answer::Kind::Text && text.empty()) continue;
        takeProblem();
        const CommandStatus status = runOne(*this, text, last);
        const bool escaped = status == CommandStatus::Cancelled && source.interactive();
        if (status == CommandStatus::Done || escaped) continue;
        if (result == CommandStatus::Done) result = status;
        if (status == CommandStatus::Cancelled && input.over()) {
            noteProblem(L"the input ended inside the command");
        }
        reportCommand(where ? where() : std::string(), text, status);
        if (stopAtFailure) break;
    }
    idle();
    print(L"\n");
    return result;
}

bool Session::leave(InputSource& source) {
    WatchedSource input(source);
    if (!quit) runCommand(L"QUIT");
    return quit || input.over();
}

CommandStatus Session::runScript(const std::wstring& text, bool stopAtFailure,
                                 const std::string& name) {
    ScriptSource script(text);
    return runInput(script, stopAtFailure,
                    [&] { return name + ":" + std::to_string(script.line()); });
}

}  // namespace host
