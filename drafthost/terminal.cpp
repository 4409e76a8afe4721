// From typed lines to answers, on every system alike.
#include "drafthost/terminal.h"

bool asksForCommand(const std::wstring& prompt) { return prompt == L"Command: "; }

host::Answer Terminal::next(const std::wstring& prompt, host::InputUnit unit) {
    using Kind = host::Answer::Kind;
    for (;;) {
        const bool fresh = !m_line || m_line->atEnd();
        if (fresh) {
            std::wstring line;
            host::Answer otherwise;
            m_line.reset();
            if (!readLine(prompt, line, otherwise)) {
                const bool leaves = asksForCommand(prompt) || gone();
                if (otherwise.kind == Kind::End && !leaves) otherwise.kind = Kind::Cancel;
                return otherwise;
            }
            m_line.emplace(std::move(line));
        }
        const host::Answer answer = m_line->next({}, unit);
        if (answer.kind == Kind::Text) return answer;
        // A comment, and blanks behind a command, are no Enter that would repeat it.
        const bool isEnter = answer.kind == Kind::Enter && fresh;
        if (isEnter || !asksForCommand(prompt)) return {Kind::Enter, {}};
    }
}
