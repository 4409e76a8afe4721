// The state of the stood-in Windows, its control side and the shared helpers.
#include "host/windows/state.h"

#include <algorithm>
#include <cerrno>
#include <cwctype>

#include "host/control/faults.h"
#include "module/version.h"

namespace host {
namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

}  // namespace

WindowsState::WindowsState()
    : version({fromUtf8(VELMO_COMPANY_NAME), fromUtf8(VELMO_PRODUCT_NAME),
               fromUtf8(VELMO_FILE_VERSION)}) {}

WindowsState& windowsState() {
    static WindowsState instance;
    return instance;
}

void resetWindows() { windowsState() = WindowsState(); }

void setDebuggerPresent(bool present) { windowsState().debuggerPresent = present; }

void setEnvironment(const std::wstring& name, std::optional<std::wstring> value) {
    windowsState().environment[name] = std::move(value);
}

void setModuleFileName(const void* module, const std::wstring& path) {
    windowsState().moduleFiles[module] = path;
}

void lockFile(const std::wstring& path, long attempts) {
    windowsState().lockedFile = nativePath(path.c_str());
    windowsState().lockedAttempts = attempts;
}

void setWorkstationStart(std::optional<std::time_t> moment) {
    windowsState().workstationStart = moment;
}

void setVersionResource(std::optional<VersionResource> resource) {
    windowsState().version = std::move(resource);
}

std::wstring lowerCase(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
    return text;
}

std::string nativePath(LPCWSTR path) {
    std::string bytes = toUtf8(path != nullptr ? path : L"");
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}

int failWith(DWORD error) {
    lastError = error;
    return 0;
}

DWORD errorFromErrno(int number) {
    switch (number) {
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case EACCES:
        case EPERM:
        case EISDIR:
        case EROFS:
            return ERROR_ACCESS_DENIED;
        case EEXIST:
            return ERROR_ALREADY_EXISTS;
        default:
            return ERROR_GEN_FAILURE;
    }
}

bool accessFails(const char* call, LPCWSTR path) {
    if (callFails(call)) return failWith(ERROR_GEN_FAILURE), true;
    WindowsState& state = windowsState();
    if (state.lockedAttempts <= 0 || nativePath(path) != state.lockedFile) return false;
    --state.lockedAttempts;
    return failWith(ERROR_SHARING_VIOLATION), true;
}

DWORD giveText(const std::wstring& text, LPWSTR buffer, DWORD size) {
    const auto length = static_cast<DWORD>(text.size());
    if (size <= length) return length + 1;
    std::wmemcpy(buffer, text.c_str(), length + 1);
    return length;
}

}  // namespace host

DWORD GetLastError() { return host::lastError; }
