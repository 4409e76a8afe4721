// Texts of drawings without their formatting codes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Lines of a paragraph text (MTEXT): formatting codes are dropped, stacked fractions stand as a/b,
/// letters in the font of tolerance symbols (gdt) are these, and lines over `width` characters are
/// broken between words; 0 breaks none.
std::vector<std::wstring> linesOfParagraphs(std::wstring_view text, std::size_t width);
/// A single-line text with %%c, %%d and %%p resolved and underline codes dropped.
std::wstring singleLine(std::wstring_view text);
}  // namespace host
