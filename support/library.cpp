// Initialisation and shut-down of the support library.
#include "library.h"

#include <string>

#include "boundary.h"
#include "diagnostic_log.h"
#include "diagnostics.h"
#include "version_resource.h"

bool G_bLibraryInitialised = false;
CString G_sApplicationName;
HMODULE G_hCurrentModule = NULL;

namespace {

const CheckSource DIAG_SOURCE = L"Library";

bool G_bFinaliseAtShutDown = false;

/// Whether a per-user switch is there, is a REG_DWORD and equals 1.
bool isSwitchOn(const wchar_t* name) {
    const std::wstring key = L"Software\\" + versionString(G_hCurrentModule, L"CompanyName") +
                             L"\\" + versionString(G_hCurrentModule, L"ProductName");
    HKEY hkRegistryKey = NULL;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &hkRegistryKey) !=
        ERROR_SUCCESS) {
        return false;
    }
    DWORD type = REG_NONE;
    DWORD value = 0;
    DWORD size = sizeof value;
    const bool on = ::RegQueryValueExW(hkRegistryKey, name, NULL, &type,
                                       reinterpret_cast<BYTE*>(&value), &size) == ERROR_SUCCESS &&
                    type == REG_DWORD && size == sizeof value && value == 1;
    DIAG_ASSERT(::RegCloseKey(hkRegistryKey) == ERROR_SUCCESS,
                L"::RegCloseKey(hkRegistryKey) == ERROR_SUCCESS");
    return on;
}

void readDiagnosticsSettings() {
    const bool debugStartup = isSwitchOn(L"DebugStartup");
    const bool assertStartup = isSwitchOn(L"AssertStartup");
    if (debugStartup) {
        deleteWorkingLog();
        const DiagnosticsSettings everything = {true, true, true, 2};
        G_diagnostics = everything;
    }
    // The narrower switch wins when both are on.
    if (assertStartup) {
        const DiagnosticsSettings assertionsOnly = {true, false, false, 1};
        G_diagnostics = assertionsOnly;
    }
}

void finaliseLog() {
    const std::wstring sWorkingLog = workingLogName();
    const std::wstring sFinalLog = finalLogName();
    if (!fileExists(sWorkingLog)) return;
    if (fileExists(sFinalLog)) {
        DIAG_ASSERT(::DeleteFileW(sFinalLog.c_str()), L"::DeleteFile(sFinalLog)");
    }
    DIAG_ASSERT(::MoveFileW(sWorkingLog.c_str(), sFinalLog.c_str()),
                L"::MoveFile(sWorkingLog, sFinalLog)");
}

}  // namespace

void initialiseLibrary(const CString& sApplicationName, HMODULE hModule, bool createCrashDumper,
                       bool finaliseLog) {
    DIAG_ASSERT(!G_bLibraryInitialised, L"!G_bLibraryInitialised");
    DIAG_ASSERT(!sApplicationName.IsEmpty(), L"!CString(sApplicationName).IsEmpty()");
    G_sApplicationName = sApplicationName;
    G_hCurrentModule = hModule;
    G_bFinaliseAtShutDown = finaliseLog;
    G_bLibraryInitialised = true;
    static_cast<void>(createCrashDumper);
    readDiagnosticsSettings();
}

void shutDownLibrary() {
    DIAG_ASSERT(G_hCurrentModule != NULL, L"G_hCurrentModule != NULL");
    DIAG_ASSERT(G_bLibraryInitialised, L"G_bLibraryInitialised");
    DIAG_ASSERT(!G_sApplicationName.IsEmpty(), L"!G_sApplicationName.IsEmpty()");
    G_diagnostics.logFileEnabled = false;
    if (G_bFinaliseAtShutDown) withinBoundary(finaliseLog);
    G_sApplicationName.Empty();
    G_hCurrentModule = NULL;
    G_bLibraryInitialised = false;
}
