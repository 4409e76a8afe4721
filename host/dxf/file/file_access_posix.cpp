// File calls on POSIX systems.
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/dxf/file/file_access.h"

namespace host {
namespace {

bool failed(std::string& why) {
    why = ::strerror(errno);
    return false;
}

int handleOf(std::intptr_t file) { return static_cast<int>(file); }

bool writeAll(std::intptr_t file, std::string_view bytes, std::string& why) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(handleOf(file), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return failed(why);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace

FilePlace placeOf(const std::string& path) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) {
        return errno == ENOENT ? FilePlace::Missing : FilePlace::Unreachable;
    }
    if (S_ISREG(status.st_mode)) return FilePlace::File;
    return S_ISDIR(status.st_mode) ? FilePlace::Folder : FilePlace::Other;
}

InputFile::~InputFile() {
    if (m_file >= 0) ::close(handleOf(m_file));
}

bool InputFile::open(const std::string& path, std::string& why) {
    // Without O_NONBLOCK the opening of a pipe would wait for a writer.
    m_file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (m_file < 0) return failed(why);
    struct stat status;
    if (::fstat(handleOf(m_file), &status) != 0) return failed(why);
    if (!S_ISREG(status.st_mode)) {
        why = S_ISDIR(status.st_mode) ? "Is a directory" : "Is not a regular file";
        return false;
    }
    m_size = static_cast<std::uint64_t>(status.st_size);
    return true;
}

long InputFile::read(char* buffer, std::size_t size, std::string& why) {
    for (;;) {
        const ssize_t count = ::read(handleOf(m_file), buffer, size);
        if (count >= 0) return static_cast<long>(count);
        if (errno == EINTR) continue;
        failed(why);
        return -1;
    }
}

OutputFile::~OutputFile() {
    if (m_file >= 0) ::close(handleOf(m_file));
}

bool OutputFile::create(const std::string& path, std::string& why) {
    if (fileCallFails(why)) return false;
    m_file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    return m_file >= 0 || failed(why);
}

bool OutputFile::takePermissionsOf(const std::string& path, std::string& why) {
    if (fileCallFails(why)) return false;
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) return failed(why);
    // Only the superuser may give files away; for others the new file is theirs.
    if (::fchown(handleOf(m_file), status.st_uid, status.st_gid) != 0 && errno != EPERM) {
        return failed(why);
    }
    return ::fchmod(handleOf(m_file), status.st_mode & 07777) == 0 || failed(why);
}

bool OutputFile::write(std::string_view bytes, std::string& why) {
    const auto writeHalf = [&] { writeAll(m_file, bytes.substr(0, bytes.size() / 2), why); };
    return !fileWriteFails(why, writeHalf) && writeAll(m_file, bytes, why);
}

bool OutputFile::flushToDisk(std::string& why) {
    if (fileCallFails(why)) return false;
    return ::fsync(handleOf(m_file)) == 0 || failed(why);
}

bool OutputFile::close(std::string& why) {
    if (fileCallFails(why)) return false;
    const int file = handleOf(m_file);
    m_file = -1;
    return ::close(file) == 0 || failed(why);
}

std::string folderPart(const std::string& path) {
    const std::size_t end = path.rfind('/');
    return end == std::string::npos ? std::string() : path.substr(0, end + 1);
}

bool isWritable(const std::string& path) { return ::access(path.c_str(), W_OK) == 0; }

std::string withoutLinks(const std::string& path) {
    std::string target = path;
    for (int links = 0; links < 40; ++links) {
        char buffer[PATH_MAX];
        const ssize_t length = ::readlink(target.c_str(), buffer, sizeof buffer);
        if (length <= 0) break;
        const std::string next(buffer, static_cast<std::size_t>(length));
        target = next[0] == '/' ? next : folderPart(target) + next;
    }
    return target;
}

bool renameOver(const std::string& from, const std::string& to, std::string& why) {
    if (fileCallFails(why)) return false;
    return ::rename(from.c_str(), to.c_str()) == 0 || failed(why);
}

bool duplicateFile(const std::string& from, const std::string& to, std::string& why) {
    if (fileCallFails(why)) return false;
    if (::link(from.c_str(), to.c_str()) == 0) return true;
    return copyFile(from, to, why);
}

void removeFile(const std::string& path) { ::unlink(path.c_str()); }

bool flushFolderOf(const std::string& path, std::string& why) {
    if (fileCallFails(why)) return false;
    const std::string name = folderPart(path);
    const int folder = ::open(name.empty() ? "." : name.c_str(), O_RDONLY | O_CLOEXEC);
    if (folder < 0) return failed(why);
    // Some file systems cannot flush a folder; there the rename is all that can be done.
    const bool flushed = ::fsync(folder) == 0 || errno == EINVAL || failed(why);
    ::close(folder);
    return flushed;
}

unsigned long processNumber() { return static_cast<unsigned long>(::getpid()); }

}  // namespace host
