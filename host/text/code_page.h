// The machine's 8-bit code pages; one implementation for each platform.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// Number of a Windows code page from the name in $DWGCODEPAGE, without regard to case: "ANSI_1252"
/// and "DOS850" carry it, "ISO8859-1" and a few others are translated. 0 for an unknown name.
unsigned codePageNumber(std::string_view name);

/// True when this machine converts the code page.
bool codePageKnown(unsigned page);
/// Appends the wide form of `bytes`. Malformed bytes become U+FFFD and make the result false.
bool codePageToWide(unsigned page, std::string_view bytes, std::wstring& wide);
/// Appends the bytes of one character; false, without effect, when the page lacks it.
bool codePageFromWide(unsigned page, char32_t character, std::string& bytes);

/// Upper case of one character beyond ASCII, by the invariant rules of the machine.
wchar_t upperCase(wchar_t character);

}  // namespace host
