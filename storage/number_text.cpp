// Reads numbers from the attributes of markers.
#include "number_text.h"

#include <climits>

#include "platform.h"

namespace {

bool isDigit(wchar_t character) { return character >= L'0' && character <= L'9'; }

}  // namespace

int integerOf(const std::wstring& text) { return _wtoi(text.c_str()); }

int digitsOf(const std::wstring& text) {
    long long value = 0;
    for (std::size_t i = 0; i < text.size() && isDigit(text[i]); ++i) {
        value = value * 10 + (text[i] - L'0');
        if (value > INT_MAX) return INT_MAX;
    }
    return static_cast<int>(value);
}
