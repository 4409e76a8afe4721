// Registry values of real Windows, and their way back.
#include <windows.h>

#include <map>

#include "host/control/windows_setup.h"

namespace host {
namespace {

/// Each replaced root with its replacement. Not put back at the end of the process, where Windows
/// forgets it by itself.
std::map<HKEY, std::wstring>& replacedRoots() {
    static std::map<HKEY, std::wstring> instance;
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
    if (replacedRoots().count(root) != 0) return true;
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
    if (replaced) replacedRoots()[root] = path;
    return replaced;
}

}  // namespace

void resetWindows() {
    HKEY user = nullptr;
    const bool opened = RegOpenCurrentUser(KEY_ALL_ACCESS, &user) == ERROR_SUCCESS;
    for (const auto& [root, path] : replacedRoots()) {
        RegOverridePredefKey(root, nullptr);
        if (opened) RegDeleteTreeW(user, path.c_str());
    }
    if (opened) RegCloseKey(user);
    replacedRoots().clear();
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

}  // namespace host
