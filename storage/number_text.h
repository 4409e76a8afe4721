// Numbers in the attributes of markers. Every text has a reading; what is too large for an int is
// the largest or smallest one.
#pragma once

#include <string>

/// As the walk reads a count, which is as _wtoi does: blanks and a sign may stand in front; 0
/// without digits.
int integerOf(const std::wstring& text);

/// As the commands read one: the decimal digits at the very start, 0 when there are none.
int digitsOf(const std::wstring& text);
