// Microsoft's additions to the C runtime: case-blind comparison, numbers, formatting, narrow text.
#include <algorithm>
#include <cstring>
#include <cwctype>

#include "host/control/faults.h"
#include "host/text/wide_format.h"
#include "host/windows/state.h"

using namespace host;

int _wcsicmp(const wchar_t* left, const wchar_t* right) {
    for (;; ++left, ++right) {
        const auto a = std::towlower(static_cast<wint_t>(*left));
        const auto b = std::towlower(static_cast<wint_t>(*right));
        if (a != b) return a < b ? -1 : 1;
        if (a == 0) return 0;
    }
}

int _wtoi(const wchar_t* text) {
    const long long value = std::wcstoll(text, nullptr, 10);
    return value > INT32_MAX ? INT32_MAX : value < INT32_MIN ? INT32_MIN : static_cast<int>(value);
}

int _vsnwprintf(wchar_t* buffer, std::size_t count, const wchar_t* format, va_list arguments) {
    const std::wstring text = formatWide(format, arguments);
    std::wmemcpy(buffer, text.c_str(), std::min(count, text.size() + 1));
    return text.size() > count ? -1 : static_cast<int>(text.size());
}

int _vscwprintf(const wchar_t* format, va_list arguments) {
    return static_cast<int>(formatWide(format, arguments).size());
}

int WideCharToMultiByte(UINT, DWORD, LPCWSTR text, int length, LPSTR buffer, int size, LPCSTR,
                        LPBOOL) {
    if (callFails("WideCharToMultiByte")) return failWith(ERROR_GEN_FAILURE);
    const std::size_t characters =
        length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
    const std::string bytes = toUtf8(std::wstring_view(text, characters));
    const int needed = static_cast<int>(bytes.size());
    if (size == 0) return needed;
    if (size < needed) return failWith(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, bytes.data(), bytes.size());
    return needed;
}
