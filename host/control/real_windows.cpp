// Registry values, environment and file locks of real Windows, and their way back.
#include <windows.h>

#include <atomic>
#include <chrono>
#include <map>
#include <thread>
#include <utility>

#include "host/control/windows_setup.h"
#include "module/version.h"

namespace host {
namespace {

#define WIDE_LITERAL(text) L##text
#define WIDE(text) WIDE_LITERAL(text)

struct FormerState {
    std::map<HKEY, std::wstring> roots;  ///< each replaced root with its replacement
    std::map<std::wstring, std::optional<std::wstring>> environment;
    std::thread lock;
    std::atomic<bool> unlockNow{false};
};

/// Not put back at the end of the process, where no thread can be waited for any more.
FormerState& former() {
    static FormerState instance;
    return instance;
}

/// The root of a key "HKCU\\..." or "HKLM\\...".
HKEY rootOf(const std::wstring& key) {
    return key.compare(0, 5, L"HKLM\\") == 0 ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

/// Lets this process see a root of its own instead, an empty key of the user's that Windows forgets
/// by itself if the process does not delete it. Values left behind by one process so never switch
/// another, nor is any value of the user's changed.
bool replaceRoot(HKEY root) {
    if (former().roots.count(root) != 0) return true;
    const std::wstring path = L"Software\\drafthost\\" + std::to_wstring(GetCurrentProcessId()) +
                              (root == HKEY_LOCAL_MACHINE ? L"-machine" : L"-user");
    // The user's own key, whatever stands for it in this process by now.
    HKEY user = nullptr;
    HKEY replacement = nullptr;
    if (RegOpenCurrentUser(KEY_ALL_ACCESS, &user) != ERROR_SUCCESS) return false;
    const bool replaced =
        RegCreateKeyExW(user, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                        nullptr, &replacement, nullptr) == ERROR_SUCCESS &&
        RegOverridePredefKey(root, replacement) == ERROR_SUCCESS;
    if (replacement != nullptr) RegCloseKey(replacement);
    RegCloseKey(user);
    if (replaced) former().roots[root] = path;
    return replaced;
}

void restoreRoots() {
    HKEY user = nullptr;
    const bool opened = RegOpenCurrentUser(KEY_ALL_ACCESS, &user) == ERROR_SUCCESS;
    for (const auto& [root, path] : former().roots) {
        RegOverridePredefKey(root, nullptr);
        if (opened) RegDeleteTreeW(user, path.c_str());
    }
    if (opened) RegCloseKey(user);
    former().roots.clear();
}

void endLock() {
    former().unlockNow = true;
    if (former().lock.joinable()) former().lock.join();
    former().unlockNow = false;
}

std::optional<std::wstring> environmentValue(const std::wstring& name) {
    wchar_t value[32768];
    const DWORD length = GetEnvironmentVariableW(name.c_str(), value, 32768);
    if (length == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
    return std::wstring(value, length);
}

}  // namespace

void resetWindows() {
    endLock();
    restoreRoots();
    for (const auto& [name, value] : former().environment)
        SetEnvironmentVariableW(name.c_str(), value ? value->c_str() : nullptr);
    former().environment.clear();
}

bool setRegistryValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                      std::vector<std::uint8_t> data) {
    const HKEY root = rootOf(key);
    HKEY open = nullptr;
    if (!replaceRoot(root) ||
        RegCreateKeyExW(root, key.substr(5).c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_SET_VALUE,
                        nullptr, &open, nullptr) != ERROR_SUCCESS) {
        return false;
    }
    const bool set = RegSetValueExW(open, name.c_str(), 0, type, data.data(),
                                    static_cast<DWORD>(data.size())) == ERROR_SUCCESS;
    RegCloseKey(open);
    return set;
}

std::wstring moduleRegistryKey() {
    return L"HKCU\\Software\\" WIDE(VELMO_COMPANY_NAME) L"\\" WIDE(VELMO_PRODUCT_NAME);
}

void setEnvironment(const std::wstring& name, std::optional<std::wstring> value) {
    former().environment.emplace(name, environmentValue(name));
    SetEnvironmentVariableW(name.c_str(), value ? value->c_str() : nullptr);
}

void lockFile(const std::wstring& path, long attempts) {
    endLock();
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (attempts <= 0 || file == INVALID_HANDLE_VALUE) {
        if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        return;
    }
    former().lock = std::thread([file, attempts] {
        using Clock = std::chrono::steady_clock;
        const auto end = Clock::now() + std::chrono::milliseconds(attempts * 500 - 250);
        while (Clock::now() < end && !former().unlockNow)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        CloseHandle(file);
    });
}

}  // namespace host
