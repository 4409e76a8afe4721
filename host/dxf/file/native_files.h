// What file_access.cpp needs of the system beyond the standard library. Its sources, one for each
// system, also hold what file_access.h tells of rights, links, identities and processes.
#pragma once

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace host::native {

/// Opens a file for reading, or a new one for writing; null with errno. The caller closes it; child
/// processes do not inherit it.
std::FILE* openFile(const std::filesystem::path& path);
std::FILE* createFile(const std::filesystem::path& path);
/// False for a device or a pipe.
bool isRegular(std::FILE* file);
/// Gives a file the owner and permissions of another one, as far as the user may.
std::error_code copyPermissions(const std::filesystem::path& from, std::FILE* to);
/// Waits until everything written to the file is on the disk; false with errno.
bool flushToDisk(std::FILE* file);
/// The same for the renames in a folder.
std::error_code flushFolder(const std::filesystem::path& path);
std::error_code renameOver(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace host::native
