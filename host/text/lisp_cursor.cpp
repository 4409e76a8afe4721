// The cursor over LISP expressions.
#include "host/text/lisp_cursor.h"

#include <cwctype>

#include "host/text/text_codec.h"

namespace host {
namespace {

bool isSpace(wchar_t c) { return std::iswspace(static_cast<std::wint_t>(c)) != 0; }

}  // namespace

wchar_t LispCursor::peek() {
    while (m_at < m_text.size() && isSpace(m_text[m_at]))
        ++m_at;
    return m_at < m_text.size() ? m_text[m_at] : L'\0';
}

bool LispCursor::accept(wchar_t c) {
    if (peek() != c) return false;
    ++m_at;
    return true;
}

std::wstring LispCursor::atom() {
    peek();
    const std::size_t begin = m_at;
    while (m_at < m_text.size() && !isSpace(m_text[m_at]) &&
           std::wstring_view(L"()\"'").find(m_text[m_at]) == std::wstring_view::npos)
        ++m_at;
    return m_text.substr(begin, m_at - begin);
}

std::optional<std::wstring> LispCursor::string() {
    if (!accept(L'"')) return std::nullopt;
    std::wstring value;
    for (; m_at < m_text.size(); ++m_at) {
        wchar_t c = m_text[m_at];
        if (c == L'"') return ++m_at, value;
        if (c == L'\\' && m_at + 1 < m_text.size()) {
            c = m_text[++m_at];
            if (c == L'n') c = L'\n';
            if (c == L't') c = L'\t';
        }
        value += c;
    }
    return std::nullopt;
}

std::optional<std::wstring> parseHandent(const std::wstring& text) {
    LispCursor cursor(text);
    if (!cursor.accept(L'(') || foldCase(cursor.atom()) != L"HANDENT") return std::nullopt;
    const std::optional<std::wstring> handle = cursor.string();
    const bool whole = handle && !handle->empty() && cursor.accept(L')') && cursor.peek() == 0;
    return whole ? handle : std::nullopt;
}

}  // namespace host
