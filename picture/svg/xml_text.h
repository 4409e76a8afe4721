// Texts, ready for XML.
#pragma once

#include <string>
#include <string_view>

namespace picture {

/// UTF-8 for XML content and attributes; characters that XML forbids are dropped.
std::string xml(std::wstring_view text);
/// Appends the same.
void addXml(std::string& safe, std::wstring_view text);
/// The same of UTF-8; malformed bytes, as names of files can hold them, become U+FFFD.
std::string xml(std::string_view text);

}  // namespace picture
