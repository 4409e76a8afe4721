// Numbers and handles as drawings write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace host {

/// Shortest text that reads back as the same double; always with a point or an exponent.
std::string formatReal(double value);
std::string formatHandle(std::uint64_t handle);
/// "1 entity", "20 entities".
std::string amount(long long count, const char* one, const char* many);
/// The highest handle of an object. Above it stands nothing that readers take: neither do owners
/// and seeds there raise the next free handle, nor is one given there.
inline constexpr std::uint64_t kHighestHandle = ~std::uint64_t{0} - (std::uint64_t{1} << 32);
/// Blanks around the number are accepted, anything else is not. Reals are finite.
std::optional<double> parseReal(std::string_view text);
std::optional<long long> parseInteger(std::string_view text);
std::optional<std::uint64_t> parseHandle(std::string_view text);
/// Without blanks, tabs and carriage returns around it.
std::string_view trimmed(std::string_view text);

}  // namespace host
