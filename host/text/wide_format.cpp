// The wide formatter: the interface's "%s" is wide text, which the C library does not agree with.
#include "host/text/wide_format.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <optional>
#include <type_traits>

namespace host {
namespace {

constexpr int kWidest = 4096;

/// The argument list as a member, so that functions can hand it on by reference.
struct Arguments {
    std::va_list list;
};

/// One conversion as written: flags, width, precision, length and letter.
struct Conversion {
    std::string flags;
    int width = 0;       ///< below 0: to the left
    int precision = -1;  ///< below 0: none
    std::wstring length;
    wchar_t letter = 0;
};

/// Digits, or the argument that "*" stands for.
int readCount(const wchar_t*& at, Arguments& arguments) {
    if (*at == L'*') {
        ++at;
        return std::clamp(va_arg(arguments.list, int), -kWidest, kWidest);
    }
    int count = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at)
        count = std::min(count * 10 + static_cast<int>(*at - L'0'), kWidest);
    return count;
}

/// Reads behind the percent sign; `at` moves behind the letter (or stays at the end of the text).
Conversion readConversion(const wchar_t*& at, Arguments& arguments) {
    Conversion conversion;
    for (; *at != 0 && std::wcschr(L"-+ #0", *at) != nullptr; ++at)
        conversion.flags += static_cast<char>(*at);
    conversion.width = readCount(at, arguments);
    if (*at == L'.') conversion.precision = readCount(++at, arguments);
    for (; *at != 0 && std::wcschr(L"hlI64", *at) != nullptr; ++at)
        conversion.length += *at;
    if (*at != 0) conversion.letter = *at++;
    return conversion;
}

/// Formats one number through the C library with `length` as its length.
template <typename Number>
std::wstring number(const Conversion& conversion, const char* length, Number value) {
    char digits[2 * kWidest];  // the largest double needs 310 in front of its point
    std::string format = "%" + conversion.flags + "*.*" + length;
    format += static_cast<char>(conversion.letter);
    const int size = std::snprintf(digits, sizeof digits, format.c_str(), conversion.width,
                                   conversion.precision, value);
    return {digits, digits + std::max(size, 0)};
}

/// The next argument, as wide as `length` says; shorter ones arrive as int.
template <typename Int, typename Long, typename LongLong>
std::wstring integer(const Conversion& conversion, Arguments& arguments) {
    const std::wstring& length = conversion.length;
    const LongLong value = length == L"ll" || length == L"I64" ? va_arg(arguments.list, LongLong)
                           : length == L"l"                    ? va_arg(arguments.list, Long)
                                                               : va_arg(arguments.list, Int);
    return number(conversion, "ll", value);
}

std::wstring padded(std::wstring text, const Conversion& conversion) {
    const auto width = static_cast<std::size_t>(std::abs(conversion.width));
    const bool left = conversion.width < 0 || conversion.flags.find('-') != std::string::npos;
    if (width > text.size()) text.insert(left ? text.size() : 0, width - text.size(), L' ');
    return text;
}

template <typename Character>
std::wstring text(const Conversion& conversion, const Character* source) {
    if (source == nullptr) return padded(L"(null)", conversion);
    const auto most = static_cast<std::size_t>(conversion.precision);  // none is the largest size
    std::wstring text;
    for (; *source != 0 && text.size() < most; ++source)
        text += static_cast<wchar_t>(static_cast<std::make_unsigned_t<Character>>(*source));
    return padded(std::move(text), conversion);
}

/// Nothing when the letter is no conversion.
std::optional<std::wstring> converted(const Conversion& conversion, Arguments& arguments) {
    switch (conversion.letter) {
        case L'd':
        case L'i':
            return integer<int, long, long long>(conversion, arguments);
        case L'u':
        case L'x':
        case L'X':
        case L'o':
            return integer<unsigned, unsigned long, unsigned long long>(conversion, arguments);
        case L'f':
        case L'e':
        case L'g':
            return number(conversion, "", va_arg(arguments.list, double));
        case L's':
        case L'S':
            if (conversion.length == L"h" ||
                (conversion.letter == L'S' && conversion.length == L""))
                return text(conversion, va_arg(arguments.list, const char*));
            return text(conversion, va_arg(arguments.list, const wchar_t*));
        case L'c':
        case L'C':
            return padded({static_cast<wchar_t>(va_arg(arguments.list, int))}, conversion);
        case L'%':
            return L"%";
        default:
            return std::nullopt;
    }
}

}  // namespace

std::wstring formatWide(const wchar_t* format, std::va_list list) {
    Arguments arguments;
    va_copy(arguments.list, list);
    std::wstring result;
    while (*format != 0) {
        if (*format != L'%') {
            result += *format++;
            continue;
        }
        const wchar_t* const begin = format++;
        const Conversion conversion = readConversion(format, arguments);
        result += converted(conversion, arguments).value_or(std::wstring(begin, format));
    }
    va_end(arguments.list);
    return result;
}

}  // namespace host
