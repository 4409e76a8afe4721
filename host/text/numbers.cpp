// Numbers and handles as drawings write them.
#include "host/text/numbers.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace host {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

template <typename T>
std::optional<T> wholeNumber(std::string_view text, int base) {
    T value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc() || stop != end || text.empty()) return std::nullopt;
    return value;
}

std::string_view withoutPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

/// True for a number that is too small, rather than too large, for a double.
bool isUnderflow(std::string_view number) {
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent != std::string_view::npos && exponent + 1 < number.size()) {
        return number[exponent + 1] == '-';
    }
    return number.find_first_of("123456789") > number.find('.');
}

}  // namespace

std::string formatReal(double value) {
    char digits[64];
    char* const limit = digits + sizeof digits - 2;
    // Everyday sizes are written without an exponent, as drawings are.
    const double size = std::fabs(value);
    const bool plain = value == 0.0 || (size >= 1e-5 && size < 1e16);
    const auto result = plain ? std::to_chars(digits, limit, value, std::chars_format::fixed)
                              : std::to_chars(digits, limit, value);
    char* end = result.ptr;
    if (plain && std::memchr(digits, '.', static_cast<std::size_t>(end - digits)) == nullptr) {
        *end++ = '.';
        *end++ = '0';
    }
    return std::string(digits, end);
}

std::string formatHandle(std::uint64_t handle) {
    char digits[16];
    char* at = digits + sizeof digits;
    do {
        *--at = "0123456789ABCDEF"[handle & 15];
        handle >>= 4;
    } while (handle != 0);
    return std::string(at, digits + sizeof digits);
}

std::string amount(long long count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

std::optional<double> parseReal(std::string_view text) {
    const std::string_view number = withoutPlus(trimmed(text));
    const std::size_t first = number.find_first_not_of('-');
    // Words such as "nan" and "inf" are no numbers of a drawing.
    if (first == std::string_view::npos) return std::nullopt;
    if (number[first] != '.' && (number[first] < '0' || number[first] > '9')) return std::nullopt;
    double value = 0.0;
    const char* end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    if (stop != end) return std::nullopt;
    if (error == std::errc()) return value;
    if (error == std::errc::result_out_of_range && isUnderflow(number)) return 0.0;
    return std::nullopt;
}

std::optional<long long> parseInteger(std::string_view text) {
    return wholeNumber<long long>(withoutPlus(trimmed(text)), 10);
}

std::optional<std::uint64_t> parseHandle(std::string_view text) {
    return wholeNumber<std::uint64_t>(trimmed(text), 16);
}

std::string_view trimmed(std::string_view text) {
    // A carriage return counts too: at the end of a line it would be lost with the next loading.
    const auto isOutside = [](char c) { return isBlank(c) || c == '\r'; };
    while (!text.empty() && isOutside(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isOutside(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace host
