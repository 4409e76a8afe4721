// Waits for what a page types, and notes what the session answers.
#include "window/conversation.h"

#include <utility>

#include "host/control/effects.h"
#include "host/editor/selection/pickfirst.h"
#include "host/objectarx/database.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

namespace window {

using host::Answer;
using host::InputUnit;

Conversation::Conversation(host::Session& session, Desk& desk, CommandWatch& watch,
                           std::function<std::string()> composeNews, std::function<bool()> isOver)
    : m_session(session),
      m_desk(desk),
      m_watch(watch),
      m_composeNews(std::move(composeNews)),
      m_isOver(std::move(isOver)) {}

namespace {

/// The name as a person has typed it, blanks and quotes around it left out.
Answer fileAnswer(Answer answer) {
    const std::size_t begin = answer.text.find_first_not_of(L" \t");
    if (begin == answer.text.npos) return answer;
    const std::size_t end = answer.text.find_last_not_of(L" \t") + 1;
    const bool quoted =
        end - begin > 1 && answer.text[begin] == L'"' && answer.text[end - 1] == L'"';
    answer.text = quoted ? answer.text.substr(begin + 1, end - begin - 2)
                         : answer.text.substr(begin, end - begin);
    return answer;
}

}  // namespace

Conversation::Mark Conversation::mark() const {
    const AcDbDatabase* drawing = m_session.database();
    if (drawing == nullptr) return {};
    const host::Store& store = drawing->store();
    return {store.serial(), store.revision, store.handleSeed()};
}

/// Notes for the script how the command went that a prompt for commands follows.
void Conversation::finishCommand() {
    const auto status = m_watch.takeEnd();
    CommandEnd end;
    end.isCommand = status.has_value();
    end.failed = m_failed;
    end.cancelled = m_escaped || status == host::CommandStatus::Cancelled;
    end.changed = mark() != m_before;
    end.dropsPicks = m_pickedBefore && host::pickfirst().empty();
    m_record.finish(end);
    m_failed = m_escaped = false;
    m_before = mark();
    m_pickedBefore = !host::pickfirst().empty();
}

Answer Conversation::next(const std::wstring& prompt, InputUnit unit) {
    m_atCommand = host::asksForCommand(prompt);
    if (m_atCommand) finishCommand();
    const Answer answer = TypedLines::next(prompt, unit);
    const bool isEscape = answer.kind == Answer::Kind::Cancel;
    if (isEscape && m_atCommand && !host::pickfirst().empty()) m_record.dropPicks();
    m_escaped = m_escaped || (isEscape && !m_atCommand);
    // In a script a blank ends the name of a file, or quotes hold it together.
    const bool isFile = host::question().wanted == host::Wanted::File;
    m_record.add(isFile ? fileAnswer(answer) : answer, isFile ? InputUnit::Token : unit,
                 beganLine());
    return answer;
}

bool Conversation::readLine(const std::wstring&, InputUnit unit, std::wstring& line,
                            Answer& otherwise) {
    m_unit = unit;
    m_waits = true;
    while (m_inputs.empty()) {
        if (m_reply != nullptr) std::exchange(m_reply, nullptr)->set_value(m_composeNews());
        if (m_isOver()) {
            m_waits = false;
            otherwise.kind = Answer::Kind::End;
            return false;
        }
        m_desk.serveOne();
    }
    m_waits = false;
    const Input input = std::move(m_inputs.front());
    m_inputs.pop_front();
    otherwise.kind = Answer::Kind::Cancel;
    if (input.escape) return false;
    line = input.line;
    put(std::exchange(m_open, {}) + line + L"\n");
    m_atLineBegin = true;
    return true;
}

void Conversation::put(const std::wstring& text) {
    constexpr std::size_t kMost = 400000, kKept = 200000;
    m_transcript += text;
    if (m_transcript.size() < kMost) return;
    const std::size_t surplus = m_transcript.size() - kKept;
    m_transcript.erase(0, surplus);
    m_forgotten += surplus;
}

void Conversation::print(const std::wstring& text) {
    // Behind a typed line the cursor is at a line's begin already.
    const bool skips = m_atLineBegin && !text.empty() && text[0] == L'\n';
    m_open += skips ? text.substr(1) : text;
    if (!text.empty()) m_atLineBegin = skips && text.size() == 1;
    const std::size_t begin = m_open.rfind(L'\n') + 1;  // 0 without a line end
    put(m_open.substr(0, begin));
    m_open.erase(0, begin);
}

void Conversation::diagnose(const std::string& line) {
    m_failed = true;
    host::printLine(host::fromUtf8(line));
}

void Conversation::type(std::vector<std::wstring> lines, const Reply& reply) {
    for (std::wstring& line : lines)
        m_inputs.push_back({false, std::move(line)});
    m_reply = reply;
}

void Conversation::cancel(const Reply& reply) {
    m_inputs.push_back({true, {}});
    m_reply = reply;
}

void Conversation::conclude() {
    m_waits = false;
    if (m_reply != nullptr) std::exchange(m_reply, nullptr)->set_value(m_composeNews());
}

}  // namespace window
