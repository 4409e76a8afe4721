// Conversion between the text of a drawing and wide characters, on every platform alike.
#include "host/text/text_codec.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "host/text/code_page.h"
#include "host/text/numbers.h"

namespace host {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }
bool isSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

bool isAscii(std::string_view bytes) {
    std::size_t at = 0;
    for (; at + 8 <= bytes.size(); at += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes.data() + at, 8);
        if ((word & 0x8080808080808080u) != 0) return false;
    }
    for (; at < bytes.size(); ++at) {
        if ((bytes[at] & 0x80) != 0) return false;
    }
    return true;
}

/// Appends a character; where wide characters have 16 bits, as a surrogate pair when needed.
void appendWide(std::wstring& text, char32_t c) {
    if (sizeof(wchar_t) == 2 && c > 0xFFFF) {
        text += static_cast<wchar_t>(0xD7C0 + (c >> 10));
        text += static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
    } else {
        text += static_cast<wchar_t>(c);
    }
}

/// Reads the character at `at` and moves behind it; a surrogate pair is one character.
char32_t nextWide(std::wstring_view text, std::size_t& at) {
    char32_t c = static_cast<char32_t>(text[at++]);
    if (sizeof(wchar_t) == 2) c &= 0xFFFF;
    if (isHighSurrogate(c) && at < text.size()) {
        const char32_t low = static_cast<char32_t>(text[at]);
        if (isLowSurrogate(low)) {
            ++at;
            return 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        }
    }
    return c;
}

void appendUtf8(std::string& bytes, char32_t c) {
    if (c < 0x80) {
        bytes += static_cast<char>(c);
        return;
    }
    const int following = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    static constexpr unsigned lead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(lead[following] | (c >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) {
        bytes += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
    }
}

/// Reads one character of UTF-8 and moves behind it. False, one byte on, when it is malformed:
/// overlong forms, surrogates and values above U+10FFFF count as such.
bool nextUtf8(std::string_view bytes, std::size_t& at, char32_t& c) {
    const unsigned char first = static_cast<unsigned char>(bytes[at++]);
    c = first;
    if (first < 0x80) return true;
    const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4) return false;
    if (bytes.size() - at < static_cast<std::size_t>(following)) return false;
    c = first & (0x3Fu >> following);
    for (int i = 0; i < following; ++i) {
        const unsigned char byte = static_cast<unsigned char>(bytes[at + i]);
        if ((byte & 0xC0) != 0x80) return false;
        c = (c << 6) | (byte & 0x3F);
    }
    if ((following == 2 && c < 0x800) || (following == 3 && c < 0x10000)) return false;
    if (c > 0x10FFFF || isSurrogate(c)) return false;
    at += following;
    return true;
}

/// Value of four hexadecimal digits at `at`, or -1.
long hexAt(std::wstring_view text, std::size_t at) {
    if (text.size() - at < 4) return -1;
    long value = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        const wchar_t c = text[i];
        long digit = -1;
        if (c >= L'0' && c <= L'9') digit = c - L'0';
        if (c >= L'A' && c <= L'F') digit = c - L'A' + 10;
        if (c >= L'a' && c <= L'f') digit = c - L'a' + 10;
        if (digit < 0) return -1;
        value = value * 16 + digit;
    }
    return value;
}

/// Replaces each "\U+XXXX"; two that make a surrogate pair become one character.
std::wstring withoutEscapes(std::wstring text) {
    std::size_t escape = text.find(L"\\U+");
    if (escape == std::wstring::npos) return text;
    std::wstring plain;
    std::size_t done = 0;
    for (; escape != std::wstring::npos; escape = text.find(L"\\U+", escape)) {
        const long value = hexAt(text, escape + 3);
        if (value < 0) {
            escape += 3;
            continue;
        }
        plain.append(text, done, escape - done);
        const char32_t c = static_cast<char32_t>(value);
        const bool joins = sizeof(wchar_t) > 2 && escape == done && isLowSurrogate(c) &&
                           !plain.empty() && isHighSurrogate(static_cast<char32_t>(plain.back()));
        if (joins) {
            const char32_t high = static_cast<char32_t>(plain.back());
            plain.back() = static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (c - 0xDC00));
        } else {
            plain += static_cast<wchar_t>(c);
        }
        escape += 7;
        done = escape;
    }
    return plain.append(text, done, std::wstring::npos);
}

void appendEscape(std::string& bytes, char32_t c) {
    if (c > 0xFFFF) {
        appendEscape(bytes, 0xD7C0 + (c >> 10));
        c = 0xDC00 + (c & 0x3FF);
    }
    const std::string digits = formatHandle(c);
    bytes.append("\\U+").append(4 - digits.size(), '0').append(digits);
}

bool matches(std::string_view name, std::string_view upper) {
    if (name.size() != upper.size()) return false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = name[i];
        if ((c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c) != upper[i]) return false;
    }
    return true;
}

}  // namespace

unsigned codePageNumber(std::string_view name) {
    struct Named {
        std::string_view name;
        unsigned page;
    };
    static constexpr Named known[] = {
        {"ASCII", 20127},     {"MACINTOSH", 10000}, {"MAC-ROMAN", 10000}, {"BIG5", 950},
        {"KSC5601", 949},     {"JOHAB", 1361},      {"GB2312", 936},      {"UTF-8", 65001},
        {"UTF8", 65001},      {"ISO8859-1", 28591}, {"ISO8859-2", 28592}, {"ISO8859-3", 28593},
        {"ISO8859-4", 28594}, {"ISO8859-5", 28595}, {"ISO8859-6", 28596}, {"ISO8859-7", 28597},
        {"ISO8859-8", 28598}, {"ISO8859-9", 28599},
    };
    name = trimmed(name);
    for (const Named& entry : known) {
        if (matches(name, entry.name)) return entry.page;
    }
    std::string_view digits;
    if (name.size() > 5 && matches(name.substr(0, 5), "ANSI_")) digits = name.substr(5);
    if (name.size() > 3 && matches(name.substr(0, 3), "DOS")) digits = name.substr(3);
    const auto page = parseInteger(digits);
    return page && *page > 0 && *page < 2000 ? static_cast<unsigned>(*page) : 0;
}

bool encodingKnown(const Encoding& encoding) {
    if (encoding.utf8) return true;
    const unsigned page = codePageNumber(encoding.codePage);
    return page != 0 && codePageKnown(page);
}

bool wellFormed(std::string_view bytes, const Encoding& encoding) {
    if (isAscii(bytes)) return true;
    if (!encoding.utf8) {
        std::wstring wide;
        return codePageToWide(codePageNumber(encoding.codePage), bytes, wide);
    }
    char32_t c;
    for (std::size_t at = 0; at < bytes.size();) {
        if (!nextUtf8(bytes, at, c)) return false;
    }
    return true;
}

std::wstring decodeText(std::string_view bytes, const Encoding& encoding) {
    if (encoding.utf8 || isAscii(bytes)) {
        std::wstring wide = fromUtf8(bytes);
        return bytes.find('\\') == bytes.npos ? wide : withoutEscapes(std::move(wide));
    }
    std::wstring wide;
    codePageToWide(codePageNumber(encoding.codePage), bytes, wide);
    return withoutEscapes(std::move(wide));
}

std::string encodeText(std::wstring_view text, const Encoding& encoding) {
    const unsigned page = encoding.utf8 ? 0 : codePageNumber(encoding.codePage);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextWide(text, at);
        if (c == '\n' || c == '\r') {
            bytes += ' ';
        } else if (c != 0 && c < 0x80) {
            bytes += static_cast<char>(c);
        } else if (c > 0x10FFFF) {
            appendUtf8(bytes, '?');  // no character at all
        } else if (c == 0 || isSurrogate(c)) {
            appendEscape(bytes, c);
        } else if (encoding.utf8) {
            appendUtf8(bytes, c);
        } else if (!codePageFromWide(page, c, bytes)) {
            appendEscape(bytes, c);
        }
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    if (isAscii(bytes)) return std::wstring(bytes.begin(), bytes.end());
    std::wstring wide;
    wide.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        char32_t c;
        appendWide(wide, nextUtf8(bytes, at, c) ? c : kReplacement);
    }
    return wide;
}

std::wstring fromTextFile(std::string_view bytes) {
    const std::string_view mark = bytes.substr(0, 2);
    if (mark != "\xFF\xFE" && mark != "\xFE\xFF") return fromUtf8(bytes);
    const std::size_t high = mark == "\xFE\xFF" ? 0 : 1;
    std::wstring units, text;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[at + i]); };
        units += static_cast<wchar_t>(byte(high) << 8 | byte(1 - high));
    }
    for (std::size_t at = 0; at < units.size();) {
        const char32_t c = nextWide(units, at);
        appendWide(text, isSurrogate(c) ? kReplacement : c);
    }
    return text;
}

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextWide(text, at);
        appendUtf8(bytes, isSurrogate(c) || c > 0x10FFFF ? kReplacement : c);
    }
    return bytes;
}

std::string oneLine(std::wstring_view message) {
    constexpr std::size_t kLongest = 400;
    constexpr std::size_t kEnd = 160;  // what to do stands at the end of a message
    std::wstring line(message);
    if (line.size() > kLongest) {
        line.replace(kLongest - kEnd, line.size() - kLongest, L" ... ");
    }
    return toUtf8(printable(std::move(line)));
}

std::wstring printable(std::wstring line) {
    for (wchar_t& c : line)
        if (c == L'\n' || c == L'\r' || c == L'\t') c = L' ';
    return printableLines(std::move(line));
}

std::wstring printableLines(std::wstring text) {
    const auto steers = [](wchar_t c) {
        return (c < L' ' && c != L'\n' && c != L'\t') || (c >= 0x7F && c < 0xA0);
    };
    std::replace_if(text.begin(), text.end(), steers, L'?');
    return text;
}

std::wstring shortened(std::wstring text) {
    constexpr std::size_t kMost = 200;
    if (text.size() <= kMost) return text;
    text.resize(kMost - 1);
    if (text.back() >= 0xD800 && text.back() < 0xDC00) text.pop_back();  // half a character
    return text + L'\u2026';
}

std::wstring foldCase(std::wstring_view text) {
    std::wstring folded(text);
    for (wchar_t& c : folded) {
        if (c >= L'a' && c <= L'z') {
            c = static_cast<wchar_t>(c - L'a' + L'A');
        } else if (c >= 0x80) {
            c = upperCase(c);
        }
    }
    return folded;
}

}  // namespace host
