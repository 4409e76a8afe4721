// Escapes what XML reads as markup and drops what it forbids.
#include "picture/xml_text.h"

#include "host/text/text_codec.h"

namespace picture {

std::string xml(std::wstring_view text) {
    std::wstring safe;
    safe.reserve(text.size());
    for (const wchar_t c : text) {
        if (c == L'&')
            safe += L"&amp;";
        else if (c == L'<')
            safe += L"&lt;";
        else if (c == L'>')
            safe += L"&gt;";
        else if (c == L'"')
            safe += L"&quot;";
        else if ((c >= L' ' || c == L'\n') && c != 0xFFFE && c != 0xFFFF)
            safe += c;
    }
    return host::toUtf8(safe);
}

std::string xml(std::string_view text) { return xml(std::wstring_view(host::fromUtf8(text))); }

}  // namespace picture
