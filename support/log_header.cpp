// Gathers the block about the machine from Windows and its registry.
#include "log_header.h"

#include <vector>

#include "decimal_text.h"
#include "library.h"
#include "module_file.h"
#include "platform.h"
#include "time_text.h"

namespace {

const wchar_t kVersionKey[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
const wchar_t kShellKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
const wchar_t kBiosKey[] = L"HARDWARE\\DESCRIPTION\\System\\BIOS";
const wchar_t kProcessorKey[] = L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";

/// One value to report: the line reads "label::name=value".
struct ReportedValue {
    const wchar_t* label;
    bool ofUser;
    const wchar_t* key;
    const wchar_t* name;
};

const ReportedValue kReported[] = {
    {L"Windows", false, kVersionKey, L"ProductName"},
    {L"Windows", false, kVersionKey, L"CurrentVersion"},
    {L"Windows", false, kVersionKey, L"CurrentBuildNumber"},
    {L"ShellFolder", true, kShellKey, L"Personal"},
    {L"ShellFolder", true, kShellKey, L"AppData"},
    {L"SystemFolder", false, kVersionKey, L"SystemRoot"},
    {L"BIOS", false, kBiosKey, L"BIOSVendor"},
    {L"BIOS", false, kBiosKey, L"BIOSVersion"},
};

/// A value's bytes; empty when it is not there or has another type than `type`.
std::vector<BYTE> registryData(bool ofUser, const wchar_t* key, const wchar_t* name,
                               DWORD wantedType) {
    std::vector<BYTE> data;
    const HKEY root = ofUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    HKEY open = NULL;
    if (::RegOpenKeyExW(root, key, 0, KEY_READ, &open) != ERROR_SUCCESS) return data;
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (::RegQueryValueExW(open, name, NULL, &type, NULL, &size) == ERROR_SUCCESS &&
        type == wantedType) {
        data.resize(size);
        if (::RegQueryValueExW(open, name, NULL, NULL, data.data(), &size) != ERROR_SUCCESS) {
            data.clear();
        }
    }
    ::RegCloseKey(open);
    return data;
}

std::wstring registryText(bool ofUser, const wchar_t* key, const wchar_t* name) {
    const std::vector<BYTE> data = registryData(ofUser, key, name, REG_SZ);
    const std::wstring text(reinterpret_cast<const wchar_t*>(data.data()),
                            data.size() / sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

std::wstring computerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    return ::GetComputerNameW(name, &size) ? std::wstring(name, size) : std::wstring();
}

/// The processor's line; empty when the machine tells no clock rate.
std::wstring processorLine() {
    const std::vector<BYTE> data = registryData(false, kProcessorKey, L"~MHz", REG_DWORD);
    if (data.size() != sizeof(DWORD)) return std::wstring();
    const DWORD rate = *reinterpret_cast<const DWORD*>(data.data());
    return L"Hardware::id= " + decimalText(rate) + L" MHz, " +
           registryText(false, kProcessorKey, L"ProcessorNameString") + L", " +
           registryText(false, kProcessorKey, L"Identifier") + L"\n";
}

}  // namespace

std::wstring logHeader(const std::wstring& diagnosticsFolder) {
    std::wstring text = L"Diagnostics started: " + localTimeText(L"%c") + L"\n";
    text += L"::HostName=" + computerName() + L"\n";
    for (std::size_t i = 0; i < sizeof kReported / sizeof *kReported; ++i) {
        const ReportedValue& reported = kReported[i];
        const std::wstring value = registryText(reported.ofUser, reported.key, reported.name);
        if (value.empty()) continue;
        text += std::wstring(reported.label) + L"::" + reported.name + L"=" + value + L"\n";
    }
    text += processorLine();
    text += L"PathLocation::Module=" + modulePath(G_hCurrentModule) + L"\n";
    text += L"PathLocation::Diagnostics=" + diagnosticsFolder + L"\n";
    return text + L":-------------------------\n";
}
