// Reading the pieces of a typed LISP expression one after the other.
#pragma once

#include <optional>
#include <string>

namespace host {

/// A cursor over an expression, whose text it borrows; every reading function moves it, over blanks
/// in front first.
class LispCursor {
  public:
    explicit LispCursor(const std::wstring& text) : m_text(text) {}

    /// The next character; 0 at the end.
    wchar_t peek();
    /// Moves behind a character; false when another one is next.
    bool accept(wchar_t c);
    /// A name, a number or the dot of a pair; empty before brackets and quotes.
    std::wstring atom();
    /// A string, "\n" in it a line end, "\t" a tab and a backslash before anything else left out.
    /// Nothing when no string begins here or its closing quote is missing.
    std::optional<std::wstring> string();

  private:
    const std::wstring& m_text;
    std::size_t m_at = 0;
};

/// Handle of `(handent "2A")`, or nothing when the text has another form.
std::optional<std::wstring> parseHandent(const std::wstring& text);

}  // namespace host
