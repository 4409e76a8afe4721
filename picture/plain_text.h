// Texts of drawings without their formatting codes, and ready for XML.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace picture {

/// Lines of a paragraph text (MTEXT): formatting codes are dropped, stacked fractions stand as a/b,
/// and lines over `width` characters are broken between words; 0 breaks none.
std::vector<std::wstring> linesOfParagraphs(std::wstring_view text, std::size_t width);
/// A single-line text with %%c, %%d and %%p resolved and underline codes dropped.
std::wstring singleLine(std::wstring_view text);
/// UTF-8 for XML content and attributes; characters that XML forbids are dropped.
std::string xml(std::wstring_view text);
/// The same of UTF-8; malformed bytes, as names of files can hold them, become U+FFFD.
std::string xml(std::string_view text);

}  // namespace picture
