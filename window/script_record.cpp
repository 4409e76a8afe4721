// From answers to lines of a script.
#include "window/script_record.h"

#include <utility>

#include "host/text/text_codec.h"

namespace window {
namespace {

using host::Answer;
using host::InputUnit;

/// The answer as a script has to write it so that it reads the same.
std::wstring written(const Answer& answer, InputUnit unit) {
    const std::wstring& text = answer.text;
    if (answer.kind != Answer::Kind::Text || unit == InputUnit::Line) return text;
    if (!text.empty() && text[0] == L'(') return text;
    const bool plain = !text.empty() && text[0] != L';' && text.find_first_of(L" \t") == text.npos;
    return plain ? text : L'"' + text + L'"';
}

}  // namespace

void ScriptRecord::add(const Answer& answer, InputUnit unit, bool first) {
    if (answer.kind != Answer::Kind::Text && answer.kind != Answer::Kind::Enter) return;
    const std::wstring text = written(answer, unit);
    const bool isFirst = m_command.empty();
    if (isFirst) m_name = answer.text;
    // Each answer brought what ends it; those of one line stand in one line. A text that begins
    // like a comment is none behind another answer.
    const bool joins = !isFirst && (!first || (unit == InputUnit::Line && text[0] == L';'));
    if (joins && m_command.back() == '\n') m_command.back() = ' ';
    m_lastBegin = m_command.size();
    m_command += host::toUtf8(text) + "\n";
}

void ScriptRecord::takeBack() {
    m_command.resize(m_lastBegin);
    if (!m_command.empty()) m_command.back() = '\n';
}

void ScriptRecord::finish(const CommandEnd& end) {
    std::string command = std::exchange(m_command, {});
    m_lastBegin = 0;
    const bool repeats = m_name.empty();
    if (repeats && !end.isCommand) return;
    if (repeats) command = host::toUtf8(m_repeated) + command;
    if (end.isCommand && !repeats) m_repeated = m_name;
    if (end.cancelled && end.changed) command += "\n";
    const bool stays = !end.failed && (!end.cancelled || end.changed);
    if (stays) m_text += command;
    if (end.failed)
        m_text += "; left out, as it failed: " + command.substr(0, command.find('\n')) + "\n";
    if (!stays && end.dropsPicks) dropPicks();
}

}  // namespace window
