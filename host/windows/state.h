// What the stood-in Windows holds, and the small helpers its calls share.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/control/fake_windows.h"
#include "host/control/windows_setup.h"
#include "host/text/text_codec.h"
#include "host/windows/windows.h"

namespace host {

struct RegistryValue {
    DWORD type = 0;
    std::vector<std::uint8_t> data;
};
/// Values by name, keys by path; both in lower case.
using RegistryKey = std::map<std::wstring, RegistryValue>;

struct WindowsState {
    std::map<std::wstring, RegistryKey> registry;
    bool debuggerPresent = false;
    std::map<std::wstring, std::optional<std::wstring>> environment;
    std::map<const void*, std::wstring> moduleFiles;
    std::string lockedFile;
    long lockedAttempts = 0;
    std::optional<std::time_t> workstationStart;
    std::optional<VersionResource> version;
    WindowsState();
};

WindowsState& windowsState();

std::wstring lowerCase(std::wstring text);
/// The path as Linux wants it: forward slashes, UTF-8.
std::string nativePath(LPCWSTR path);

/// Notes the calling thread's last failure; always 0, for the caller to return.
int failWith(DWORD error);
/// The Windows error that matches errno.
DWORD errorFromErrno(int number);
/// True, after noting the failure, when an attempt to open or delete a file has to fail now: as the
/// fault point or a lock demands.
bool accessFails(const char* call, LPCWSTR path);
/// Copies a result by the rule of Windows' text-returning calls: the length without the ending
/// null, or the size needed when the buffer is too small.
DWORD giveText(const std::wstring& text, LPWSTR buffer, DWORD size);

}  // namespace host
