// The diagnostic log files: UTF-16 text with a byte-order mark, one working log a process.
#include "diagnostic_log.h"

#include <cstdio>
#include <map>

#include "decimal_text.h"
#include "library.h"
#include "log_header.h"
#include "module_file.h"
#include "platform.h"
#include "time_text.h"

namespace {

const int kMostAttempts = 10;
const DWORD kPauseMilliseconds = 500;
const wchar_t kTimeFormat[] = L"%Y%m%d%H%M%S";

std::wstring environmentValue(const wchar_t* name) {
    std::wstring value;
    value.resize(::GetEnvironmentVariableW(name, NULL, 0));
    if (value.empty()) return value;
    const auto size = static_cast<DWORD>(value.size());
    const DWORD length = ::GetEnvironmentVariableW(name, &value[0], size);
    value.resize(length < size ? length : 0);  // it may have grown in between
    return value;
}

/// The start of the workstation service, near enough the start of the machine. Where the service
/// does not tell, the machine's start is taken: now less the time that it has been running.
ULONGLONG workstationStart() {
    wchar_t service[] = L"LanmanWorkstation";
    LPBYTE buffer = NULL;
    ULONGLONG start = 0;
    if (::NetStatisticsGet(NULL, service, 0, 0, &buffer) == NERR_Success) {
        const auto* const statistics = reinterpret_cast<const STAT_WORKSTATION_0*>(buffer);
        start = static_cast<ULONGLONG>(statistics->StatisticsStartTime.QuadPart);
        ::NetApiBufferFree(buffer);
    }
    const ULONGLONG stepsInMillisecond = 10000;
    return start != 0 ? start : currentMoment() - ::GetTickCount64() * stepsInMillisecond;
}

std::wstring newWorkingLogName(const std::wstring& base) {
    return diagnosticsFolder() + base + L"." + utcTimeText(workstationStart(), kTimeFormat) + L"_" +
           utcTimeText(currentMoment(), kTimeFormat) + L"_" + decimalText(::GetCurrentProcessId()) +
           L".log";
}

/// Full names of the logs by base name, each made at its first use.
std::map<std::wstring, std::wstring> G_aLogNames;

bool isFolder(const std::wstring& name) {
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Makes the folder with all missing parents; true when it is there, whoever made it.
bool createFolders(const std::wstring& folder) {
    if (isFolder(folder)) return true;
    const std::wstring parent = folder.substr(0, folder.find_last_of(L"\\/"));
    if (parent != folder) createFolders(parent);
    ::CreateDirectoryW(folder.c_str(), NULL);
    return isFolder(folder);
}

enum OpenResult { kOpened, kMissing, kOpenFailed };

/// Opens for writing without creating, and closes again.
OpenResult tryOpen(const std::wstring& name) {
    const HANDLE file = ::CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, NULL,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, NULL);
    if (file == INVALID_HANDLE_VALUE) {
        return ::GetLastError() == ERROR_FILE_NOT_FOUND ? kMissing : kOpenFailed;
    }
    ::CloseHandle(file);
    return kOpened;
}

bool appendText(const std::wstring& name, const std::wstring& text) {
    std::FILE* const file = ::_wfopen(name.c_str(), L"a+t, ccs=UNICODE");
    if (file == NULL) return false;
    const bool written = ::fwprintf_s(file, L"%ls", text.c_str()) >= 0;
    return std::fclose(file) == 0 && written;
}

/// One attempt; false after any file error.
bool appendOnce(const std::wstring& name, const std::wstring& text) {
    const OpenResult state = tryOpen(name);
    if (state == kOpenFailed) return false;
    if (state == kMissing && !appendText(name, logHeader(diagnosticsFolder()))) {
        return false;
    }
    return appendText(name, text);
}

}  // namespace

std::wstring diagnosticsFolder() {
    std::wstring folder = environmentValue(L"TEMP");
    if (folder.empty()) folder = environmentValue(L"TMP");
    if (folder.empty()) return folder;
    const wchar_t last = folder[folder.size() - 1];
    if (last != L'\\' && last != L'/') folder += L'\\';
    return folder + L"Velmo Diagnostics\\";
}

bool createDiagnosticsFolder() {
    const std::wstring folder = diagnosticsFolder();
    return !folder.empty() && createFolders(folder);
}

std::wstring workingLogName() {
    const std::wstring base = moduleFileName(G_hCurrentModule);
    std::wstring& name = G_aLogNames[base];
    if (name.empty() && !diagnosticsFolder().empty()) name = newWorkingLogName(base);
    return name;
}

std::wstring finalLogName() {
    const std::wstring base = moduleFileName(G_hCurrentModule) + L".log";
    std::wstring& name = G_aLogNames[base];
    if (name.empty() && !diagnosticsFolder().empty()) name = diagnosticsFolder() + base;
    return name;
}

bool fileExists(const std::wstring& name) {
    return !name.empty() && ::GetFileAttributesW(name.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void deleteWorkingLog() {
    const std::wstring name = workingLogName();
    if (tryOpen(name) == kOpened) ::DeleteFileW(name.c_str());
}

void appendToWorkingLog(const std::wstring& text) {
    const std::wstring name = workingLogName();
    if (name.empty()) return;
    const std::wstring line = text.substr(0, text.find_last_not_of(L'\n') + 1) + L"\n";
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        if (appendOnce(name, line)) return;
        ::Sleep(kPauseMilliseconds);
    }
}
