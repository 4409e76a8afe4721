// The end of the input at a terminal, on every system alike.
#include "drafthost/prompt/terminal.h"

host::Answer Terminal::next(const std::wstring& prompt, host::InputUnit unit) {
    host::Answer answer = TypedLines::next(prompt, unit);
    const bool leaves = host::asksForCommand(prompt) || gone();
    if (answer.kind == host::Answer::Kind::End && !leaves) answer.kind = host::Answer::Kind::Cancel;
    return answer;
}
