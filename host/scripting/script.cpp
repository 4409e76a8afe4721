// The `.scr` language: where one answer ends and the next begins.
#include "host/scripting/script.h"

#include <utility>

namespace host {
namespace {

bool isLineEnd(wchar_t c) { return c == L'\n'; }
bool isBlank(wchar_t c) { return c == L' ' || c == L'\t'; }

/// Line ends of all systems become line feeds; a byte-order mark goes.
std::wstring normalized(std::wstring text) {
    if (!text.empty() && text.front() == L'\uFEFF') text.erase(0, 1);
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r') {
            if (i + 1 < text.size() && text[i + 1] == L'\n') continue;
            result += L'\n';
        } else {
            result += text[i];
        }
    }
    return result;
}

/// End of the string that opens at `at`: behind its closing quote, or the end of its line.
std::size_t endOfString(const std::wstring& text, std::size_t at, bool escapes) {
    for (++at; at < text.size() && !isLineEnd(text[at]); ++at) {
        if (escapes && text[at] == L'\\') {
            if (at + 1 < text.size() && !isLineEnd(text[at + 1])) ++at;
        } else if (text[at] == L'"') {
            return at + 1;
        }
    }
    return at;
}

/// End of the expression that opens at `at`: behind its closing bracket, or the end of the text.
std::size_t endOfExpression(const std::wstring& text, std::size_t at) {
    int depth = 0;
    while (at < text.size()) {
        if (text[at] == L'"') {
            at = endOfString(text, at, true);
            continue;
        }
        if (text[at] == L'(') ++depth;
        if (text[at] == L')') --depth;
        ++at;
        if (depth == 0) break;
    }
    return at;
}

}  // namespace

ScriptSource::ScriptSource(std::wstring text) : m_text(normalized(std::move(text))) {
    skipComments();
}

bool ScriptSource::atEnd() const { return m_position >= m_text.size(); }

void ScriptSource::skipComments() {
    while (!atEnd() && m_text[m_position] == L';' &&
           (m_position == 0 || isLineEnd(m_text[m_position - 1]))) {
        while (!atEnd() && !isLineEnd(m_text[m_position]))
            ++m_position;
        finish();
    }
}

void ScriptSource::finish() {
    if (atEnd()) return;
    if (isLineEnd(m_text[m_position])) ++m_line;
    ++m_position;
}

/// The next answer's text; the position is then at what finishes it.
std::wstring ScriptSource::take(InputUnit unit) {
    const std::size_t begin = m_position;
    if (unit == InputUnit::Line) {
        while (!atEnd() && !isLineEnd(m_text[m_position]))
            ++m_position;
        return m_text.substr(begin, m_position - begin);
    }
    if (m_text[begin] == L'(') {
        m_position = endOfExpression(m_text, begin);
        const std::wstring expression = m_text.substr(begin, m_position - begin);
        for (wchar_t c : expression)
            m_line += isLineEnd(c) ? 1 : 0;
        return expression;
    }
    std::wstring text;
    while (!atEnd() && !isLineEnd(m_text[m_position]) && !isBlank(m_text[m_position])) {
        if (m_text[m_position] != L'"') {
            text += m_text[m_position++];
            continue;
        }
        const std::size_t open = m_position;
        m_position = endOfString(m_text, open, false);
        const bool closed = m_position > open + 1 && m_text[m_position - 1] == L'"';
        text += m_text.substr(open + 1, m_position - open - (closed ? 2 : 1));
    }
    return text;
}

Answer ScriptSource::next(const std::wstring&, InputUnit unit) {
    m_answerLine = m_line;
    if (atEnd()) return {Answer::Kind::End, {}};
    const std::size_t begin = m_position;
    std::wstring text = take(unit);
    // Only nothing at all is Enter: "" in quotes is an empty text.
    const bool enter = m_position == begin;
    // Behind an expression the next answer may follow without a blank.
    if (!atEnd() && (isBlank(m_text[m_position]) || isLineEnd(m_text[m_position]))) finish();
    skipComments();
    return {enter ? Answer::Kind::Enter : Answer::Kind::Text, std::move(text)};
}

}  // namespace host
