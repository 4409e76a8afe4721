// Paths: UTF-8 in the host, the system's own characters in its file calls.
#include "host/text/paths.h"

#include <cstdlib>
#include <type_traits>

#include "host/text/text_codec.h"

namespace host {
namespace {

constexpr bool kWidePaths = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

/// The user's home folder by the environment; empty when it names none.
std::filesystem::path homeFolder() {
    const char* const home = std::getenv(kWidePaths ? "USERPROFILE" : "HOME");
    return home == nullptr ? std::filesystem::path() : std::filesystem::path(home);
}

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

std::string drawingPath(const std::string& path) {
    const auto exists = [](const std::string& name) {
        std::error_code ignored;
        return std::filesystem::exists(pathFromUtf8(name), ignored);
    };
    return !exists(path) && exists(path + ".dxf") ? path + ".dxf" : path;
}

std::string withHome(const std::string& path) {
    const bool atHome = path == "~" || path.rfind("~/", 0) == 0 || path.rfind("~\\", 0) == 0;
    const std::filesystem::path home = atHome ? homeFolder() : std::filesystem::path();
    return home.empty() ? path : utf8OfPath(home) + path.substr(1);
}

}  // namespace host
