// Paths: UTF-8 in the host, the system's own characters in its file calls.
#pragma once

#include <filesystem>
#include <string>

namespace host {

/// The path that UTF-8 means, and back. Malformed text gives a path that is not there.
std::filesystem::path pathFromUtf8(const std::string& path);
std::string utf8OfPath(const std::filesystem::path& path);

/// Absolute path of a file; the text itself when the system gives none.
std::string absolutePath(const std::string& path);

/// The path, or with ".dxf" behind it where only that is there.
std::string drawingPath(const std::string& path);

/// The path with a leading "~" or "~/" replaced by the user's home folder; as it is when there is
/// none.
std::string withHome(const std::string& path);

}  // namespace host
