// Formatting with the interface's printf conversions.
#pragma once

#include <cstdarg>
#include <string>

namespace host {

/// Formats with wide conversions on every platform: "%s", "%ls" and "%ws" take wide text, "%hs" and
/// "%S" narrow text, "%c" a wide character. Null text prints as "(null)", "%n" is skipped, an
/// unknown conversion prints as it stands, widths and precisions count up to 4096.
std::wstring formatWide(const wchar_t* format, std::va_list arguments);

}  // namespace host
