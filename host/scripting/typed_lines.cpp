// From typed lines to answers.
#include "host/scripting/typed_lines.h"

#include <utility>

namespace host {

namespace {

/// A text, which may begin like a comment.
Answer wholeLine(std::wstring line) {
    line.erase(line.find_last_not_of(L"\r\n") + 1);
    if (line.empty()) return {Answer::Kind::Enter, {}};
    return {Answer::Kind::Text, std::move(line)};
}

}  // namespace

bool asksForCommand(const std::wstring& prompt) { return prompt == L"Command: "; }

Answer TypedLines::next(const std::wstring& prompt, InputUnit unit) {
    using Given = Answer::Kind;
    for (;;) {
        m_beganLine = !m_line || m_line->atEnd();
        if (m_beganLine) {
            std::wstring line;
            Answer otherwise;
            m_line.reset();
            if (!readLine(prompt, unit, line, otherwise)) return otherwise;
            if (line.empty() || line.back() != L'\n') line += L'\n';
            if (unit == InputUnit::Line) return wholeLine(std::move(line));
            m_line.emplace(std::move(line));
        }
        const Answer answer = m_line->next({}, unit);
        if (answer.kind == Given::Text) return answer;
        // A comment, and blanks behind a command, are no Enter that would repeat it.
        const bool isEnter = answer.kind == Given::Enter && m_beganLine;
        if (isEnter || !asksForCommand(prompt)) return {Given::Enter, {}};
    }
}

}  // namespace host
