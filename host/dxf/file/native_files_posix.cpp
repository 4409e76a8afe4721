// Owners, permissions, links and flushing on POSIX systems.
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cstring>
#include <vector>

#include "host/dxf/file/file_access.h"
#include "host/dxf/file/native_files.h"

namespace host::native {
namespace {

std::error_code resultOf(int answer) {
    return answer == 0 ? std::error_code() : std::error_code(errno, std::generic_category());
}

/// What the file system or the user's rights do not allow is left out: the content matters more.
void copyAttributes(const std::filesystem::path& from, int to) {
    std::vector<char> names(std::size_t{1} << 16), value(names.size());
    const ssize_t size = ::listxattr(from.c_str(), names.data(), names.size());
    for (const char* name = names.data(); size > 0 && name < names.data() + size;) {
        const ssize_t length = ::getxattr(from.c_str(), name, value.data(), value.size());
        if (length >= 0) {
            static_cast<void>(
                ::fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0));
        }
        name += std::strlen(name) + 1;
    }
}

}  // namespace

std::FILE* openFile(const std::filesystem::path& path) { return std::fopen(path.c_str(), "rbe"); }

std::FILE* createFile(const std::filesystem::path& path) {
    return std::fopen(path.c_str(), "wbxe");
}

bool isRegular(std::FILE* file) {
    struct stat status;
    return ::fstat(::fileno(file), &status) == 0 && S_ISREG(status.st_mode);
}

std::error_code copyPermissions(const std::filesystem::path& from, std::FILE* to) {
    struct stat status;
    if (::stat(from.c_str(), &status) != 0) return resultOf(-1);
    // Only the superuser may give files away; for others the new file is theirs.
    if (::fchown(::fileno(to), status.st_uid, status.st_gid) != 0 && errno != EPERM) {
        return resultOf(-1);
    }
    if (::fchmod(::fileno(to), status.st_mode & 07777) != 0) return resultOf(-1);
    copyAttributes(from, ::fileno(to));
    return {};
}

bool flushToDisk(std::FILE* file) { return std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0; }

std::error_code flushFolder(const std::filesystem::path& path) {
    const int folder = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (folder < 0) return resultOf(-1);
    // Some file systems cannot flush a folder; there the rename is all that can be done.
    const bool flushed = ::fsync(folder) == 0 || errno == EINVAL;
    const std::error_code result = resultOf(flushed ? 0 : -1);
    ::close(folder);
    return result;
}

std::error_code renameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    return resultOf(std::rename(from.c_str(), to.c_str()));
}

}  // namespace host::native

namespace host {

bool isWritable(const std::string& path) { return ::access(path.c_str(), W_OK) == 0; }

std::string withoutLinks(const std::string& path) {
    std::filesystem::path target = path;
    std::error_code failure;
    for (int links = 0; links < 40; ++links) {
        const std::filesystem::path next = std::filesystem::read_symlink(target, failure);
        if (failure) break;
        target = target.parent_path() / next;
    }
    return target;
}

bool processLives(unsigned long number) {
    return ::kill(static_cast<pid_t>(number), 0) == 0 || errno == EPERM;
}

bool hasOtherNames(const std::string& path) {
    struct stat status;
    return ::stat(path.c_str(), &status) == 0 && status.st_nlink > 1;
}

std::string fileIdentity(const std::string& path) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return {};
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

unsigned long processNumber() { return static_cast<unsigned long>(::getpid()); }

}  // namespace host
