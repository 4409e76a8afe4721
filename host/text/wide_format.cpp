// The wide formatter: the interface's "%s" is wide text, which the C library does not agree with.
#include "host/text/wide_format.h"

#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <vector>

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
    int width = -1;
    int precision = -1;
    std::string length;
    wchar_t letter = 0;
};

int readNumber(const wchar_t*& at, Arguments& arguments) {
    if (*at == L'*') {
        ++at;
        return va_arg(arguments.list, int);
    }
    int number = 0;
    while (*at >= L'0' && *at <= L'9') {
        if (number <= kWidest) number = number * 10 + (*at - L'0');
        ++at;
    }
    return number;
}

/// Reads behind the percent sign; `at` moves behind the letter (or stays at the end of the text).
Conversion readConversion(const wchar_t*& at, Arguments& arguments) {
    Conversion conversion;
    while (*at != 0 && std::wcschr(L"-+ #0", *at) != nullptr)
        conversion.flags += static_cast<char>(*at++);
    if (*at == L'*' || (*at >= L'0' && *at <= L'9')) conversion.width = readNumber(at, arguments);
    if (conversion.width < -1) {
        conversion.flags += '-';
        conversion.width = conversion.width < -kWidest ? kWidest : -conversion.width;
    }
    if (*at == L'.') {
        ++at;
        conversion.precision = readNumber(at, arguments);
        if (conversion.precision < 0) conversion.precision = -1;
    }
    if (std::wcsncmp(at, L"I64", 3) == 0) {
        conversion.length = "ll";
        at += 3;
    }
    while (*at != 0 && std::wcschr(L"hlwjztL", *at) != nullptr)
        conversion.length += static_cast<char>(*at++);
    if (*at != 0) conversion.letter = *at++;
    if (conversion.width > kWidest) conversion.width = kWidest;
    if (conversion.precision > kWidest) conversion.precision = kWidest;
    return conversion;
}

std::wstring padded(std::wstring text, const Conversion& conversion) {
    if (conversion.width <= static_cast<int>(text.size())) return text;
    const std::size_t missing = static_cast<std::size_t>(conversion.width) - text.size();
    const bool left = conversion.flags.find('-') != std::string::npos;
    return left ? text + std::wstring(missing, L' ') : std::wstring(missing, L' ') + text;
}

/// Formats one number through the C library with `length` as its length.
template <typename Number>
std::wstring number(const Conversion& conversion, const char* length, Number value) {
    std::string format = "%" + conversion.flags;
    if (conversion.width >= 0) format += std::to_string(conversion.width);
    if (conversion.precision >= 0) format += "." + std::to_string(conversion.precision);
    format += length;
    format += static_cast<char>(conversion.letter);
    const int size = std::snprintf(nullptr, 0, format.c_str(), value);
    if (size < 0) return {};
    std::vector<char> buffer(static_cast<std::size_t>(size) + 1);
    std::snprintf(buffer.data(), buffer.size(), format.c_str(), value);
    return {buffer.begin(), buffer.end() - 1};
}

std::wstring integer(const Conversion& conversion, Arguments& arguments) {
    const std::string& length = conversion.length;
    if (length == "l") return number(conversion, "l", va_arg(arguments.list, long));
    if (length == "ll" || length == "j")
        return number(conversion, "ll", va_arg(arguments.list, long long));
    if (length == "z" || length == "t")
        return number(conversion, "ll",
                      static_cast<long long>(va_arg(arguments.list, std::ptrdiff_t)));
    const int value = va_arg(arguments.list, int);  // shorter ones arrive as int
    return number(conversion, length == "h" ? "h" : length == "hh" ? "hh" : "", value);
}

std::wstring text(const Conversion& conversion, Arguments& arguments) {
    const bool narrow =
        conversion.length == "h" || (conversion.letter == L'S' && conversion.length.empty());
    const std::size_t most = conversion.precision < 0
                                 ? static_cast<std::size_t>(-1)
                                 : static_cast<std::size_t>(conversion.precision);
    std::wstring result;
    if (narrow) {
        const char* source = va_arg(arguments.list, const char*);
        if (source == nullptr) source = "(null)";
        for (; *source != 0 && result.size() < most; ++source)
            result += static_cast<wchar_t>(static_cast<unsigned char>(*source));
    } else {
        const wchar_t* source = va_arg(arguments.list, const wchar_t*);
        if (source == nullptr) source = L"(null)";
        for (; *source != 0 && result.size() < most; ++source)
            result += *source;
    }
    return padded(std::move(result), conversion);
}

/// False when the letter is no conversion.
bool convert(const Conversion& conversion, Arguments& arguments, std::wstring& result) {
    switch (conversion.letter) {
        case L'd':
        case L'i':
        case L'u':
        case L'x':
        case L'X':
        case L'o':
            result += integer(conversion, arguments);
            return true;
        case L'f':
        case L'F':
        case L'e':
        case L'E':
        case L'g':
        case L'G':
        case L'a':
        case L'A':
            if (conversion.length == "L")
                result += number(conversion, "L", va_arg(arguments.list, long double));
            else
                result += number(conversion, "", va_arg(arguments.list, double));
            return true;
        case L's':
        case L'S':
            result += text(conversion, arguments);
            return true;
        case L'c':
        case L'C':
            result += padded(std::wstring(1, static_cast<wchar_t>(va_arg(arguments.list, int))),
                             conversion);
            return true;
        case L'p':
            result += number(conversion, "", va_arg(arguments.list, void*));
            return true;
        case L'n':
            (void)va_arg(arguments.list, void*);
            return true;
        case L'%':
            result += L'%';
            return true;
        default:
            return false;
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
        const wchar_t* begin = format++;
        const Conversion conversion = readConversion(format, arguments);
        if (!convert(conversion, arguments, result)) result.append(begin, format);
    }
    va_end(arguments.list);
    return result;
}

}  // namespace host
