// Code pages and upper case on Windows.
#include <windows.h>

#include "host/text/code_page.h"

namespace host {
namespace {

/// Characters that Windows gives for bytes which the page leaves undefined.
bool isPlaceholder(wchar_t c) { return (c >= 0x80 && c <= 0x9F) || (c >= 0xF8E0 && c <= 0xF8FF); }

/// Bytes of the first character: two when a lead byte of the page begins it.
std::size_t lengthOfFirst(unsigned page, std::string_view bytes) {
    const bool lead = IsDBCSLeadByteEx(page, static_cast<BYTE>(bytes[0])) != 0;
    return lead && bytes.size() > 1 ? 2 : 1;
}

}  // namespace

bool codePageKnown(unsigned page) { return IsValidCodePage(page) != 0; }

bool codePageToWide(unsigned page, std::string_view bytes, std::wstring& wide) {
    const bool iso = page >= 28591 && page <= 28599;
    bool sound = true;
    while (!bytes.empty()) {
        const std::size_t length = lengthOfFirst(page, bytes);
        wchar_t buffer[4];
        const int made = MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(),
                                             static_cast<int>(length), buffer, 4);
        if (made <= 0 || (!iso && made == 1 && isPlaceholder(buffer[0]))) {
            wide += L'\xFFFD';
            bytes.remove_prefix(1);
            sound = false;
            continue;
        }
        wide.append(buffer, static_cast<std::size_t>(made));
        bytes.remove_prefix(length);
    }
    return sound;
}

bool codePageFromWide(unsigned page, char32_t character, std::string& bytes) {
    wchar_t wide[2] = {static_cast<wchar_t>(character), 0};
    int length = 1;
    if (character > 0xFFFF) {
        wide[0] = static_cast<wchar_t>(0xD7C0 + (character >> 10));
        wide[1] = static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
        length = 2;
    }
    char buffer[16];
    BOOL replaced = FALSE;
    const int made = WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, wide, length, buffer,
                                         sizeof buffer, nullptr, &replaced);
    if (made <= 0 || replaced) return false;
    bytes.append(buffer, static_cast<std::size_t>(made));
    return true;
}

wchar_t upperCase(wchar_t character) {
    wchar_t upper = character;
    LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, &character, 1, &upper, 1);
    return upper;
}

}  // namespace host
