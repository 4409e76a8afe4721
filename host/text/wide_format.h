// Formatting with the interface's printf conversions.
#pragma once

#include <cstdarg>
#include <string>

namespace host {

/// Formats with wide conversions on every platform: "%s" and "%ls" take wide text, "%S" and "%hs"
/// narrow text (Latin-1), "%c" a wide character, "%d i u x X o" an int or with "l", "ll" and "I64"
/// a longer one, "%f e g" a double. Null text prints as "(null)", any other conversion as it
/// stands; widths and precisions count up to 4096.
std::wstring formatWide(const wchar_t* format, std::va_list arguments);

}  // namespace host
