// Links, flushing and lasting renames on Windows.
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include "host/dxf/file/file_access.h"
#include "host/dxf/file/native_files.h"
#include "host/text/text_codec.h"

namespace host::native {
namespace {

std::FILE* openWith(const std::filesystem::path& path, int flags, const char* mode) {
    const int file = _wopen(path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    return file < 0 ? nullptr : _fdopen(file, mode);
}

}  // namespace

std::FILE* openFile(const std::filesystem::path& path) { return openWith(path, _O_RDONLY, "rb"); }

std::FILE* createFile(const std::filesystem::path& path) {
    return openWith(path, _O_WRONLY | _O_CREAT | _O_EXCL, "wb");
}

bool isRegular(std::FILE* file) {
    const std::intptr_t handle = _get_osfhandle(_fileno(file));
    return GetFileType(reinterpret_cast<HANDLE>(handle)) == FILE_TYPE_DISK;
}

std::error_code copyPermissions(const std::filesystem::path&, std::FILE*) {
    return {};  // access lists are inherited from the folder
}

bool flushToDisk(std::FILE* file) { return std::fflush(file) == 0 && _commit(_fileno(file)) == 0; }

std::error_code flushFolder(const std::filesystem::path&) {
    return {};  // renameOver has done it
}

std::error_code renameOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    constexpr DWORD kHow = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (MoveFileExW(from.c_str(), to.c_str(), kHow)) return {};
    return {static_cast<int>(GetLastError()), std::system_category()};
}

}  // namespace host::native

namespace host {
namespace {

/// Opens what stands at a path, whoever else has it open, to ask about it; the caller closes it.
HANDLE openToAsk(const std::string& path) {
    return CreateFileW(fromUtf8(path).c_str(), 0,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

bool readInformation(const std::string& path, BY_HANDLE_FILE_INFORMATION& about) {
    const HANDLE file = openToAsk(path);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool known = GetFileInformationByHandle(file, &about) != 0;
    CloseHandle(file);
    return known;
}

}  // namespace

bool isWritable(const std::string& path) {
    return (GetFileAttributesW(fromUtf8(path).c_str()) & FILE_ATTRIBUTE_READONLY) == 0;
}

std::string withoutLinks(const std::string& path) {
    const HANDLE file = openToAsk(path);
    if (file == INVALID_HANDLE_VALUE) return path;
    wchar_t name[1024];
    const DWORD length = GetFinalPathNameByHandleW(file, name, 1024, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    // It begins with "\\?\", where the C library sees a wild card; network places keep it.
    const bool onDrive = length > 6 && length < 1024 && name[5] == L':';
    return onDrive ? toUtf8({name + 4, length - 4}) : path;
}

bool processLives(unsigned long number) {
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, number);
    if (process == nullptr) return GetLastError() == ERROR_ACCESS_DENIED;
    const bool lives = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    CloseHandle(process);
    return lives;
}

bool hasOtherNames(const std::string& path) {
    BY_HANDLE_FILE_INFORMATION about;
    return readInformation(path, about) && about.nNumberOfLinks > 1;
}

std::string fileIdentity(const std::string& path) {
    BY_HANDLE_FILE_INFORMATION about;
    if (!readInformation(path, about)) return {};
    return std::to_string(about.dwVolumeSerialNumber) + ":" + std::to_string(about.nFileIndexHigh) +
           ":" + std::to_string(about.nFileIndexLow);
}

unsigned long processNumber() { return GetCurrentProcessId(); }

}  // namespace host
