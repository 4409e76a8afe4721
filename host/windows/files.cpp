// Win32 files over Linux files.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/windows/state.h"

namespace {

using namespace host;

/// Handles are descriptors, moved up so that none is null.
HANDLE handleOf(int descriptor) { return reinterpret_cast<HANDLE>(LONG_PTR{descriptor} + 1); }

int descriptorOf(HANDLE handle) { return static_cast<int>(reinterpret_cast<LONG_PTR>(handle) - 1); }

bool isThere(const std::string& path) {
    struct stat about = {};
    return stat(path.c_str(), &about) == 0;
}

/// Windows tells a missing folder from a missing file.
DWORD openError(const std::string& path) {
    if (errno != ENOENT) return errorFromErrno(errno);
    const std::size_t slash = path.rfind('/');
    const bool folderMissing =
        slash != std::string::npos && slash > 0 && !isThere(path.substr(0, slash));
    return folderMissing ? ERROR_PATH_NOT_FOUND : ERROR_FILE_NOT_FOUND;
}

int openFlags(DWORD access) {
    if ((access & GENERIC_WRITE) == 0) return O_RDONLY;
    return (access & GENERIC_READ) != 0 ? O_RDWR : O_WRONLY;
}

/// Answers a call from the result of its Linux counterpart.
BOOL answer(int result) { return result == 0 ? TRUE : failWith(errorFromErrno(errno)); }

}  // namespace

HANDLE CreateFileW(LPCWSTR name, DWORD access, DWORD, SECURITY_ATTRIBUTES*, DWORD disposition,
                   DWORD, HANDLE) {
    if (accessFails("CreateFileW", name)) return INVALID_HANDLE_VALUE;
    if (disposition != OPEN_EXISTING) {
        failWith(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const std::string path = nativePath(name);
    const int descriptor = open(path.c_str(), openFlags(access) | O_CLOEXEC);
    if (descriptor < 0) {
        failWith(openError(path));
        return INVALID_HANDLE_VALUE;
    }
    if ((access & GENERIC_WRITE) != 0) recordEffect(EffectKind::FileWrite, name);
    return handleOf(descriptor);
}

BOOL CloseHandle(HANDLE handle) { return answer(close(descriptorOf(handle))); }

BOOL WriteFile(HANDLE file, LPCVOID data, DWORD size, LPDWORD written, OVERLAPPED*) {
    *written = 0;
    if (callFails("WriteFile")) return failWith(ERROR_GEN_FAILURE);
    if (descriptorOf(file) == STDOUT_FILENO) {
        // Through the C stream, so that the order with the program's own output is kept.
        recordEffect(EffectKind::StandardOutput,
                     fromUtf8(std::string(static_cast<const char*>(data), size)));
        *written = static_cast<DWORD>(std::fwrite(data, 1, size, stdout));
        return *written == size ? TRUE : failWith(ERROR_GEN_FAILURE);
    }
    const ssize_t count = write(descriptorOf(file), data, size);
    if (count < 0) return failWith(errorFromErrno(errno));
    *written = static_cast<DWORD>(count);
    return TRUE;
}

HANDLE GetStdHandle(DWORD which) {
    return which == STD_OUTPUT_HANDLE ? handleOf(STDOUT_FILENO) : nullptr;
}

BOOL DeleteFileW(LPCWSTR name) {
    if (accessFails("DeleteFileW", name)) return FALSE;
    if (unlink(nativePath(name).c_str()) != 0) return failWith(errorFromErrno(errno));
    recordEffect(EffectKind::FileWrite, name);
    return TRUE;
}

BOOL MoveFileW(LPCWSTR from, LPCWSTR to) {
    if (callFails("MoveFileW")) return failWith(ERROR_GEN_FAILURE);
    const std::string target = nativePath(to);
    if (isThere(target)) return failWith(ERROR_ALREADY_EXISTS);
    if (std::rename(nativePath(from).c_str(), target.c_str()) != 0) {
        return failWith(errorFromErrno(errno));
    }
    recordEffect(EffectKind::FileWrite, to);
    return TRUE;
}

BOOL CreateDirectoryW(LPCWSTR name, SECURITY_ATTRIBUTES*) {
    if (callFails("CreateDirectoryW")) return failWith(ERROR_GEN_FAILURE);
    return answer(mkdir(nativePath(name).c_str(), 0777));
}

DWORD GetFileAttributesW(LPCWSTR name) {
    struct stat about = {};
    if (callFails("GetFileAttributesW") || stat(nativePath(name).c_str(), &about) != 0) {
        failWith(ERROR_FILE_NOT_FOUND);
        return INVALID_FILE_ATTRIBUTES;
    }
    return S_ISDIR(about.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
}

DWORD GetLongPathNameW(LPCWSTR path, LPWSTR buffer, DWORD size) {
    if (callFails("GetLongPathNameW")) return failWith(ERROR_GEN_FAILURE);
    return isThere(nativePath(path)) ? giveText(path, buffer, size)
                                     : failWith(ERROR_FILE_NOT_FOUND);
}
