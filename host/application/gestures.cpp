// What a person does with the mouse or Ctrl+Tab at the empty prompt, as typed forms.
#include "host/application/gestures.h"

#include "host/control/effects.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/state/current_drawing.h"
#include "host/scripting/script.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

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

CommandStatus pickGesture(Session& session, bool shift) {
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
    if (session.documents.current() == nullptr) return session.fail({"no drawing is open"});
    if (words.empty()) {
        return session.fail(
            {"a selection is missing: a point, W or C and two points, ALL, L, P, "
             "(handent \"2A\") or NONE"});
    }
    if (!parseSelection(words, selection, explanation)) {
        return session.fail({toUtf8(explanation)});
    }
    if (selection.empty()) printLine(L"0 found");
    shift ? unpick(selection) : pick(selection);
    return CommandStatus::Done;
}

/// PICKED: position, handle and type of each entity of the pick-first set.
CommandStatus printPicked() {
    long position = 0;
    for (const AcDbObjectId id : pickfirst()) {
        const ObjectBody* body = Store::resolve(id);
        if (body == nullptr) continue;
        printLine(std::to_wstring(++position) + L" " + handleText(*body) + L" " +
                  fromUtf8(body->type()));
    }
    if (position == 0) printLine(L"Nothing is picked.");
    return CommandStatus::Done;
}

/// The open drawing that an answer names: its number in opening order, its path or file name.
HostDocument* namedDocument(const Documents& documents, const std::wstring& answer) {
    const std::wstring wanted = foldCase(answer);
    std::size_t number = 0;
    for (HostDocument* document : documents.all()) {
        const std::wstring path = foldCase(document->fileName());
        const std::wstring name = path.substr(path.find_last_of(L"/\\") + 1);
        if (wanted == std::to_wstring(++number) || wanted == path || wanted == name)
            return document;
    }
    return nullptr;
}

/// SWITCH: makes another open drawing current, as Ctrl+Tab does.
CommandStatus switchGesture(Session& session) {
    std::size_t number = 0;
    for (const HostDocument* document : session.documents.all())
        printLine(std::to_wstring(++number) + L" " + document->fileName() +
                  (document == session.documents.current() ? L" (current)" : L""));
    const Answer answer =
        answerAtPrompt(*inputSource(), L"\nEnter number or name of drawing: ", InputUnit::Line);
    if (answer.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (answer.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    HostDocument* document = namedDocument(session.documents, answer.text);
    if (document == nullptr)
        return session.fail({toUtf8(answer.text) + ": no open drawing; SWITCH lists them"});
    session.activate(*document);
    return CommandStatus::Done;
}

}  // namespace

Answer answerAtPrompt(InputSource& source, const std::wstring& text, InputUnit unit) {
    const Answer answer = source.next(text, unit);
    if (answer.kind == Answer::Kind::Cancel) print(L"*Cancel*");
    if (!source.interactive()) print(answer.text);
    return answer;
}

std::vector<std::wstring> typableNames() {
    std::vector<std::wstring> names;
    for (const BuiltinCommand* command : builtinCommands())
        names.emplace_back(command->name);
    for (const RegisteredCommand& command : registeredCommands())
        names.push_back(command.globalName);
    names.insert(names.end(), {L"PICK", L"UNPICK", L"PICKED", L"SWITCH"});
    return names;
}

std::optional<CommandStatus> runGesture(Session& session, const std::wstring& name) {
    if (name == L"PICK" || name == L"UNPICK") return pickGesture(session, name == L"UNPICK");
    if (name == L"PICKED") return printPicked();
    if (name == L"SWITCH") return switchGesture(session);
    return std::nullopt;
}

}  // namespace host
