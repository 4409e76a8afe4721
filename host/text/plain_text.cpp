// Takes the formatting codes out of texts.
#include "host/text/plain_text.h"

#include <cwctype>
#include <utility>

namespace host {
namespace {

bool isSymbolFont(std::wstring_view font) {
    return font.size() >= 3 && std::towlower(static_cast<wint_t>(font[0])) == L'g' &&
           std::towlower(static_cast<wint_t>(font[1])) == L'd' &&
           std::towlower(static_cast<wint_t>(font[2])) == L't';
}

/// What a letter shows in the font of tolerance symbols.
wchar_t symbolOf(wchar_t letter) {
    constexpr std::wstring_view kLetters = L"abcdefghijklmnprtu";
    constexpr std::wstring_view kSymbols =
        L"\u2220\u27c2\u23e5\u2313\u25cb\u2225\u232d\u2197\u232f\u2316\u2312\u24c1\u24c2\u2300"
        L"\u24c5\u25ce"
        L"\u2330\u23e4";
    const std::size_t place = kLetters.find(letter);
    return place == std::wstring_view::npos ? letter : kSymbols[place];
}

/// Reads the codes of a paragraph text one after the other.
class Paragraphs {
  public:
    explicit Paragraphs(std::wstring_view text) : m_text(text) {}

    std::vector<std::wstring> read() {
        while (m_at < m_text.size())
            step();
        return std::move(m_lines);
    }

  private:
    void step() {
        const std::size_t plain = m_symbols ? m_at : plainEnd();
        m_lines.back().append(m_text, m_at, plain - m_at);
        m_at = plain;
        if (m_at == m_text.size()) return;
        const wchar_t c = m_text[m_at++];
        if (c == L'\\' && m_at < m_text.size())
            code(m_text[m_at++]);
        else if (c == L'^' && m_at < m_text.size() && m_text[m_at] == L'J')
            ++m_at, m_lines.emplace_back();
        else if (c == L'{')
            m_outer.push_back(m_symbols);
        else if (c == L'}')
            leave();
        else
            m_lines.back() += m_symbols ? symbolOf(c) : c;
    }

    /// Where the next character stands that may be more than itself.
    std::size_t plainEnd() const {
        std::size_t at = m_at;
        while (at < m_text.size() && m_text[at] != L'\\' && m_text[at] != L'^' &&
               m_text[at] != L'{' && m_text[at] != L'}')
            ++at;
        return at;
    }

    void leave() {
        if (m_outer.empty()) return;
        m_symbols = m_outer.back();
        m_outer.pop_back();
    }

    void code(wchar_t c) {
        const std::wstring_view switches = L"LlOoKk";
        const std::wstring_view withValue = L"ACcHQTWp";
        if (c == L'P' || c == L'n' || c == L'N' || c == L'X')
            m_lines.emplace_back();
        else if (c == L'~')
            m_lines.back() += L'\u00a0';
        else if (c == L'S')
            stack(value());
        else if (c == L'F' || c == L'f')
            m_symbols = isSymbolFont(value());
        else if (withValue.find(c) != std::wstring_view::npos)
            value();
        else if (switches.find(c) == std::wstring_view::npos)
            m_lines.back() += c;
    }

    /// What stands up to the semicolon, which is read too.
    std::wstring value() {
        const std::size_t end = std::min(m_text.find(L';', m_at), m_text.size());
        std::wstring text(m_text.substr(m_at, end - m_at));
        m_at = std::min(end + 1, m_text.size());
        return text;
    }

    void stack(std::wstring fraction) {
        for (wchar_t& c : fraction) {
            if (c == L'#' || c == L'^') c = L'/';
        }
        m_lines.back() += fraction;
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    bool m_symbols = false;     ///< in the font of tolerance symbols
    std::vector<bool> m_outer;  ///< the same around each open brace
    std::vector<std::wstring> m_lines{1};
};

/// Breaks a line between words where it grows over a width.
void wrap(std::wstring text, std::size_t width, std::vector<std::wstring>& lines) {
    std::wstring_view line = text;
    while (width > 0 && line.size() > width) {
        std::size_t cut = line.rfind(L' ', width);
        if (cut == std::wstring_view::npos || cut == 0) cut = line.find(L' ', width);
        if (cut == std::wstring_view::npos) break;
        lines.emplace_back(line.substr(0, cut));
        line.remove_prefix(cut + 1);
    }
    if (line.size() == text.size())
        lines.push_back(std::move(text));
    else
        lines.emplace_back(line);
}

}  // namespace

std::vector<std::wstring> linesOfParagraphs(std::wstring_view text, std::size_t width) {
    std::vector<std::wstring> lines;
    for (std::wstring& paragraph : Paragraphs(text).read()) {
        const bool hasCodes = paragraph.find(L"%%") != std::wstring::npos;
        wrap(hasCodes ? singleLine(paragraph) : std::move(paragraph), width, lines);
    }
    return lines;
}

std::wstring singleLine(std::wstring_view text) {
    if (text.find(L"%%") == std::wstring_view::npos) return std::wstring(text);
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) != L"%%" || i + 2 >= text.size()) {
            plain += text[i];
            continue;
        }
        const wchar_t code = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[i + 2])));
        i += 2;
        if (code == L'c')
            plain += L'\u2300';
        else if (code == L'd')
            plain += L'\u00b0';
        else if (code == L'p')
            plain += L'\u00b1';
        else if (code == L'%')
            plain += L'%';
        else if (code != L'u' && code != L'o' && code != L'k')
            plain += text.substr(i - 2, 3);
    }
    return plain;
}

}  // namespace host
