// File calls on Windows.
#include <windows.h>

#include <system_error>

#include "host/dxf/file/file_access.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

bool failed(std::string& why) {
    const DWORD error = GetLastError();
    // The same words as on other systems, where Windows' error has its match there.
    const std::error_condition condition =
        std::system_category().default_error_condition(static_cast<int>(error));
    why = condition.category() == std::generic_category() ? condition.message()
                                                          : "system error " + std::to_string(error);
    return false;
}

HANDLE handleOf(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

bool writeAll(std::intptr_t file, std::string_view bytes, std::string& why) {
    while (!bytes.empty()) {
        DWORD count = 0;
        const DWORD size = static_cast<DWORD>(bytes.size() < (1u << 30) ? bytes.size() : 1u << 30);
        if (!WriteFile(handleOf(file), bytes.data(), size, &count, nullptr)) return failed(why);
        bytes.remove_prefix(count);
    }
    return true;
}

DWORD attributesOf(const std::string& path) { return GetFileAttributesW(fromUtf8(path).c_str()); }

}  // namespace

FilePlace placeOf(const std::string& path) {
    const DWORD attributes = attributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        return missing ? FilePlace::Missing : FilePlace::Unreachable;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return FilePlace::Folder;
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? FilePlace::Other : FilePlace::File;
}

InputFile::~InputFile() {
    if (m_file != -1) CloseHandle(handleOf(m_file));
}

bool InputFile::open(const std::string& path, std::string& why) {
    if (placeOf(path) == FilePlace::Folder) {
        why = "Is a directory";
        return false;
    }
    const HANDLE file = CreateFileW(fromUtf8(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return failed(why);
    m_file = reinterpret_cast<std::intptr_t>(file);
    LARGE_INTEGER size;
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileSizeEx(file, &size)) {
        why = "Is not a regular file";
        return false;
    }
    m_size = static_cast<std::uint64_t>(size.QuadPart);
    return true;
}

long InputFile::read(char* buffer, std::size_t size, std::string& why) {
    DWORD count = 0;
    if (ReadFile(handleOf(m_file), buffer, static_cast<DWORD>(size), &count, nullptr)) {
        return static_cast<long>(count);
    }
    failed(why);
    return -1;
}

OutputFile::~OutputFile() {
    if (m_file != -1) CloseHandle(handleOf(m_file));
}

bool OutputFile::create(const std::string& path, std::string& why) {
    if (fileCallFails(why)) return false;
    const HANDLE file = CreateFileW(fromUtf8(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return failed(why);
    m_file = reinterpret_cast<std::intptr_t>(file);
    return true;
}

bool OutputFile::takePermissionsOf(const std::string&, std::string& why) {
    // Access lists are inherited from the folder; nothing to carry over.
    return !fileCallFails(why);
}

bool OutputFile::write(std::string_view bytes, std::string& why) {
    const auto writeHalf = [&] { writeAll(m_file, bytes.substr(0, bytes.size() / 2), why); };
    return !fileWriteFails(why, writeHalf) && writeAll(m_file, bytes, why);
}

bool OutputFile::flushToDisk(std::string& why) {
    if (fileCallFails(why)) return false;
    return FlushFileBuffers(handleOf(m_file)) != 0 || failed(why);
}

bool OutputFile::close(std::string& why) {
    if (fileCallFails(why)) return false;
    const HANDLE file = handleOf(m_file);
    m_file = -1;
    return CloseHandle(file) != 0 || failed(why);
}

std::string folderPart(const std::string& path) {
    const std::size_t end = path.find_last_of("/\\:");
    return end == std::string::npos ? std::string() : path.substr(0, end + 1);
}

bool isWritable(const std::string& path) {
    return (attributesOf(path) & FILE_ATTRIBUTE_READONLY) == 0;
}

std::string withoutLinks(const std::string& path) {
    const HANDLE file = CreateFileW(fromUtf8(path).c_str(), 0,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return path;
    wchar_t name[1024];
    const DWORD length = GetFinalPathNameByHandleW(file, name, 1024, FILE_NAME_NORMALIZED);
    CloseHandle(file);
    return length > 0 && length < 1024 ? toUtf8(std::wstring_view(name, length)) : path;
}

bool renameOver(const std::string& from, const std::string& to, std::string& why) {
    if (fileCallFails(why)) return false;
    return MoveFileExW(fromUtf8(from).c_str(), fromUtf8(to).c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0 ||
           failed(why);
}

bool duplicateFile(const std::string& from, const std::string& to, std::string& why) {
    if (fileCallFails(why)) return false;
    if (CreateHardLinkW(fromUtf8(to).c_str(), fromUtf8(from).c_str(), nullptr)) return true;
    return copyFile(from, to, why);
}

void removeFile(const std::string& path) { DeleteFileW(fromUtf8(path).c_str()); }

bool flushFolderOf(const std::string&, std::string& why) {
    // MOVEFILE_WRITE_THROUGH has done it.
    return !fileCallFails(why);
}

unsigned long processNumber() { return GetCurrentProcessId(); }

}  // namespace host
