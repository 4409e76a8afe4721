// Paths: UTF-8 in the host, the system's own characters in its file calls.
#include "host/text/paths.h"

#include <type_traits>

#include "host/text/text_codec.h"

namespace host {
namespace {

constexpr bool kWidePaths = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

}  // namespace

std::filesystem::path pathFromUtf8(const std::string& path) {
    if constexpr (kWidePaths) return fromUtf8(path);
    return path;
}

std::string utf8OfPath(const std::filesystem::path& path) {
    if constexpr (kWidePaths) return toUtf8(path.wstring());
    return path.string();
}

std::string absolutePath(const std::string& path) {
    std::error_code failure;
    const std::filesystem::path absolute = std::filesystem::absolute(pathFromUtf8(path), failure);
    return failure ? path : utf8OfPath(absolute.lexically_normal());
}

}  // namespace host
