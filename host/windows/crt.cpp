// Microsoft's additions to the C runtime: case-blind comparison, numbers, formatting, narrow text.
#include <algorithm>
#include <cstring>
#include <cwctype>

#include "host/control/faults.h"
#include "host/windows/state.h"

namespace {

using namespace host;

/// The longest text that is formatted; more counts as a format that cannot be served.
constexpr std::size_t kLongestText = std::size_t{1} << 20;

/// Rewrites one conversion, from the place after its flags, width and precision: what Microsoft
/// calls "%s" the C standard calls "%ls" in a wide format.
void appendConversion(std::wstring& out, const wchar_t*& at) {
    std::wstring length;
    if (std::wcsncmp(at, L"I64", 3) == 0) {
        length = L"ll";
        at += 3;
    } else if (std::wcsncmp(at, L"I32", 3) == 0) {
        at += 3;
    } else {
        while (*at != L'\0' && std::wcschr(L"hlwLqjzt", *at) != nullptr)
            length += *at++;
    }
    const bool text = *at == L's' || *at == L'S' || *at == L'c' || *at == L'C';
    if (text) {
        const bool wideByLetter = *at == L's' || *at == L'c';
        const bool wide = length.empty() ? wideByLetter : length != L"h";
        out += wide ? L"l" : L"";
        out += static_cast<wchar_t>(std::towlower(static_cast<wint_t>(*at)));
    } else {
        out += length;
        if (*at != L'\0') out += *at;
    }
    if (*at != L'\0') ++at;
}

std::wstring standardFormat(const wchar_t* format) {
    std::wstring out;
    for (const wchar_t* at = format; *at != L'\0';) {
        out += *at;
        if (*at++ != L'%') continue;
        while (*at != L'\0' && std::wcschr(L"-+ #0123456789.*", *at) != nullptr)
            out += *at++;
        appendConversion(out, at);
    }
    return out;
}

/// The formatted text; false when it is too long or a character cannot be converted.
bool formatText(std::wstring& text, const wchar_t* format, va_list arguments) {
    const std::wstring standard = standardFormat(format);
    for (std::size_t room = 256; room <= kLongestText; room *= 4) {
        text.assign(room, L'\0');
        va_list again;
        va_copy(again, arguments);
        const int length = std::vswprintf(&text[0], room, standard.c_str(), again);
        va_end(again);
        if (length < 0) continue;
        text.resize(static_cast<std::size_t>(length));
        return true;
    }
    return false;
}

}  // namespace

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
    std::wstring text;
    if (!formatText(text, format, arguments)) return -1;
    std::wmemcpy(buffer, text.c_str(), std::min(count, text.size() + 1));
    return text.size() > count ? -1 : static_cast<int>(text.size());
}

int _vscwprintf(const wchar_t* format, va_list arguments) {
    std::wstring text;
    return formatText(text, format, arguments) ? static_cast<int>(text.size()) : -1;
}

int WideCharToMultiByte(UINT, DWORD, LPCWSTR text, int length, LPSTR buffer, int size, LPCSTR,
                        LPBOOL) {
    if (callFails("WideCharToMultiByte")) return failWith(ERROR_GEN_FAILURE);
    const std::size_t characters =
        length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
    const std::string bytes = toUtf8(std::wstring(text, characters));
    const int needed = static_cast<int>(bytes.size());
    if (size == 0) return needed;
    if (size < needed) return failWith(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, bytes.data(), bytes.size());
    return needed;
}
