// Escapes what XML reads as markup and drops what it forbids.
#include "picture/svg/xml_text.h"

#include <algorithm>

#include "host/text/text_codec.h"

namespace picture {

void addXml(std::string& safe, std::wstring_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        if (c == L'&') {
            safe += "&amp;";
        } else if (c == L'<') {
            safe += "&lt;";
        } else if (c == L'>') {
            safe += "&gt;";
        } else if (c == L'"') {
            safe += "&quot;";
        } else if (c >= 0x80) {
            // With the other half of a character where they have 16 bits.
            const std::size_t begin = i;
            while (i + 1 < text.size() && text[i + 1] >= 0x80)
                ++i;
            std::wstring others(text.substr(begin, i + 1 - begin));
            others.erase(std::remove_if(others.begin(), others.end(),
                                        [](wchar_t o) { return o == 0xFFFE || o == 0xFFFF; }),
                         others.end());
            safe += host::toUtf8(others);
        } else if (c >= L' ' || c == L'\n') {
            safe += static_cast<char>(c);
        }
    }
}

std::string xml(std::wstring_view text) {
    std::string safe;
    addXml(safe, text);
    return safe;
}

std::string xml(std::string_view text) { return xml(std::wstring_view(host::fromUtf8(text))); }

}  // namespace picture
