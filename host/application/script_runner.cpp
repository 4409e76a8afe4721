// The command loop: commands, LISP calls and the gestures at the empty prompt.
#include <algorithm>

#include "host/application/session_impl.h"
#include "host/commands/command_support.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/state/notify.h"
#include "host/scripting/script.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Prints text as it stands, without a line of its own.
void print(const std::wstring& text) { recordEffect(EffectKind::CommandLine, text); }

/// The next answer at the empty prompt. Not through prompt(): the end of the input and Esc are no
/// cancelled command here.
Answer answerAtPrompt(InputSource& source, const std::wstring& text, InputUnit unit) {
    const Answer answer = source.next(text, unit);
    if (answer.kind == Answer::Kind::Cancel) print(L"*Cancel*");
    if (!source.interactive()) print(answer.text);
    return answer;
}

/// Passes answers on and remembers that the input is over.
class WatchedSource : public InputSource {
  public:
    explicit WatchedSource(InputSource& source) : m_source(source), m_outer(inputSource()) {
        setInputSource(this);
    }
    ~WatchedSource() override { setInputSource(m_outer); }
    Answer next(const std::wstring& prompt, InputUnit unit) override {
        const Answer answer = m_source.next(prompt, unit);
        m_over = m_over || answer.kind == Answer::Kind::End;
        return answer;
    }
    bool interactive() const override { return m_source.interactive(); }
    bool over() const { return m_over; }

  private:
    InputSource& m_source;
    InputSource* m_outer;
    bool m_over = false;
};

/// Splits the rest of a gesture's line into words as a script would.
std::vector<std::wstring> wordsOf(const std::wstring& line) {
    std::vector<std::wstring> words;
    ScriptSource source(line);
    while (!source.atEnd()) {
        const Answer answer = source.next({}, InputUnit::Token);
        if (answer.kind == Answer::Kind::Text) words.push_back(answer.text);
    }
    return words;
}

CommandStatus pickGesture(Session::Impl& session, bool shift) {
    InputSource& source = *inputSource();
    if (!source.interactive()) print(L" ");
    const Answer answer = answerAtPrompt(source, L"Selection: ", InputUnit::Line);
    if (answer.kind == Answer::Kind::Cancel || answer.kind == Answer::Kind::End) {
        return CommandStatus::Cancelled;
    }
    const std::vector<std::wstring> words = wordsOf(answer.text);
    if (!shift && words.size() == 1 && foldCase(words[0]) == L"NONE") {
        pickNothing();
        return CommandStatus::Done;
    }
    std::vector<AcDbObjectId> selection;
    std::wstring explanation;
    if (session.documents.current() == nullptr) {
        return session.fail({"no drawing is open", 1});
    }
    if (words.empty()) {
        return session.fail(
            {"a selection is missing: a point, W or C and two points, ALL, L, P, "
             "(handent \"2A\") or NONE",
             1});
    }
    if (!parseSelection(words, selection, explanation)) {
        return session.fail({toUtf8(explanation), 1});
    }
    shift ? unpick(selection) : pick(selection);
    return CommandStatus::Done;
}

/// PICKED: position, handle and type of each entity of the pick-first set.
CommandStatus printPicked() {
    long position = 0;
    for (const AcDbObjectId id : pickfirst()) {
        const ObjectBody* body = Store::resolve(id);
        if (body == nullptr) continue;
        say(std::to_wstring(++position) + L" " + fromUtf8(formatHandle(body->handle)) + L" " +
            fromUtf8(body->type()));
    }
    if (position == 0) say(L"Nothing is picked.");
    return CommandStatus::Done;
}

/// The open drawing that an answer names: its number in opening order, its path or file name.
HostDocument* namedDocument(const Documents& documents, const std::wstring& answer) {
    const std::wstring wanted = foldCase(answer);
    std::size_t number = 0;
    for (HostDocument* document : documents.all()) {
        const std::wstring path = foldCase(document->fileName());
        const std::size_t slash = path.find_last_of(L"/\\");
        const std::wstring name = slash == std::wstring::npos ? path : path.substr(slash + 1);
        if (wanted == std::to_wstring(++number) || wanted == path || wanted == name)
            return document;
    }
    return nullptr;
}

/// SWITCH: makes another open drawing current, as Ctrl+Tab does.
CommandStatus switchGesture(Session::Impl& session) {
    std::size_t number = 0;
    for (const HostDocument* document : session.documents.all())
        say(std::to_wstring(++number) + L" " + document->fileName() +
            (document == session.documents.current() ? L" (current)" : L""));
    const Answer answer =
        answerAtPrompt(*inputSource(), L"\nEnter number or name of drawing: ", InputUnit::Line);
    if (answer.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (answer.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    HostDocument* document = namedDocument(session.documents, answer.text);
    if (document == nullptr)
        return session.fail({toUtf8(answer.text) + ": no open drawing; SWITCH lists them", 1});
    session.activate(*document);
    return CommandStatus::Done;
}

CommandStatus printEntityName(Session::Impl& session, const std::wstring& handle) {
    const HostDocument* document = session.documents.current();
    if (document == nullptr) return session.fail({"no drawing is open", 1});
    const auto value = parseHandle(toUtf8(handle));
    const ObjectBody* body = value ? document->database()->store().byHandle(*value) : nullptr;
    if (body == nullptr) {
        say(L"nil");
        return session.fail({"no object has the handle " + toUtf8(handle) + " in this drawing", 1});
    }
    say(L"<Entity name: " + fromUtf8(formatHandle(body->handle)) + L">");
    return CommandStatus::Done;
}

CommandStatus runOne(Session::Impl& session, const std::wstring& text) {
    if (text.empty()) return CommandStatus::Unknown;
    if (text.front() == L'(') {
        const auto handle = parseHandent(text);
        if (handle) return printEntityName(session, *handle);
        print(L"\n");  // the person has pressed Enter, and the function prints where the cursor is
        return session.callLisp(text);
    }
    const std::wstring name = foldCase(text);
    if (name == L"PICK" || name == L"UNPICK") return pickGesture(session, name == L"UNPICK");
    if (name == L"PICKED") return printPicked();
    if (name == L"SWITCH") return switchGesture(session);
    return runCommand(text);
}

}  // namespace

CommandStatus Session::Impl::fail(const Outcome& outcome) {
    problem = outcome.error;
    exitStatus = std::max(exitStatus, outcome.status);
    return CommandStatus::Failed;
}

void Session::Impl::diagnose(const std::string& line) {
    if (diagnostics) {
        diagnostics(oneLine(fromUtf8(line)));
    } else {
        say(fromUtf8(line));
    }
}

void Session::Impl::reportCommand(const std::string& where, const std::wstring& command,
                                  CommandStatus status) {
    exitStatus = std::max(exitStatus, 1);
    std::string line = where.empty() ? where : where + ": ";
    const std::string name = toUtf8(command);
    if (!command.empty() && command.front() == L'(') {
        line += problem;
    } else if (status == CommandStatus::Unknown) {
        line += "unknown command \"" + name + "\"; drafthost --help lists the commands";
    } else {
        line += toUtf8(foldCase(command));
        line += status == CommandStatus::Cancelled ? " was cancelled" : " failed";
        line += problem.empty() ? "; the command line says why" : ": " + problem;
    }
    diagnose(line);
}

CommandStatus Session::runInput(InputSource& source, bool stopAtFailure,
                                const std::function<std::string()>& where) {
    WatchedSource input(source);
    CommandStatus result = CommandStatus::Done;
    while (!m_impl->quit && !input.over()) {
        idle();
        print(L"\nCommand: ");
        const Answer answer = answerAtPrompt(input, L"Command: ", InputUnit::Token);
        if (answer.kind == Answer::Kind::Cancel) pickNothing();
        if (answer.kind != Answer::Kind::Text) continue;
        m_impl->problem.clear();
        const CommandStatus status = runOne(*m_impl, answer.text);
        const bool escaped = status == CommandStatus::Cancelled && source.interactive();
        if (status == CommandStatus::Done || escaped) continue;
        if (result == CommandStatus::Done) result = status;
        if (status == CommandStatus::Cancelled && input.over()) {
            m_impl->problem = "the input ended inside the command";
        }
        m_impl->reportCommand(where ? where() : std::string(), answer.text, status);
        if (stopAtFailure) break;
    }
    idle();
    print(L"\n");
    return result;
}

CommandStatus Session::runScript(const std::wstring& text, bool stopAtFailure,
                                 const std::string& name) {
    ScriptSource script(text);
    return runInput(script, stopAtFailure,
                    [&] { return name + ":" + std::to_string(script.line()); });
}

}  // namespace host
