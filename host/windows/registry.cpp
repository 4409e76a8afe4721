// The registry: keys and values in memory, filled by the control side and read by the module.
#include <cstring>
#include <map>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/windows/state.h"

namespace host {
namespace {

/// Paths of the open keys.
std::map<HKEY, std::wstring>& openKeys() {
    static std::map<HKEY, std::wstring> instance;
    return instance;
}

/// Empty for a handle that is no key.
std::wstring pathOf(HKEY key) {
    if (key == HKEY_CURRENT_USER) return L"hkcu";
    if (key == HKEY_LOCAL_MACHINE) return L"hklm";
    const auto open = openKeys().find(key);
    return open != openKeys().end() ? open->second : std::wstring();
}

}  // namespace

bool setRegistryValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                      std::vector<std::uint8_t> data) {
    windowsState().registry[lowerCase(key)][lowerCase(name)] = {type, std::move(data)};
    return true;
}

long openRegistryKeys() { return static_cast<long>(openKeys().size()); }

void closeRegistryKeys() { openKeys().clear(); }

}  // namespace host

using namespace host;

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM, PHKEY result) {
    if (callFails("RegOpenKeyExW")) return ERROR_GEN_FAILURE;
    if (options != 0) return ERROR_INVALID_PARAMETER;
    const std::wstring root = pathOf(key);
    if (root.empty()) return ERROR_INVALID_HANDLE;
    const std::wstring path = root + L"\\" + lowerCase(subKey);
    const auto& registry = windowsState().registry;
    // A key is there when it or a key below it has a value.
    const std::wstring below = path + L"\\";
    const auto next = registry.lower_bound(below);
    const bool hasBelow =
        next != registry.end() && next->first.compare(0, below.size(), below) == 0;
    if (registry.count(path) == 0 && !hasBelow) return ERROR_FILE_NOT_FOUND;
    static LONG_PTR last = 0;  // no handle is used twice
    *result = reinterpret_cast<HKEY>(++last);
    openKeys()[*result] = path;
    return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
    if (callFails("RegQueryValueExW")) return ERROR_GEN_FAILURE;
    recordEffect(EffectKind::RegistryRead, name);
    const auto open = openKeys().find(key);
    if (open == openKeys().end()) return ERROR_INVALID_HANDLE;
    const RegistryKey& values = windowsState().registry[open->second];
    const auto found = values.find(lowerCase(name));
    if (found == values.end()) return ERROR_FILE_NOT_FOUND;
    const RegistryValue& value = found->second;
    if (type != nullptr) *type = value.type;
    if (size == nullptr) return ERROR_SUCCESS;
    const DWORD room = *size;
    *size = static_cast<DWORD>(value.data.size());
    if (data == nullptr) return ERROR_SUCCESS;
    if (room < *size) return ERROR_MORE_DATA;
    std::memcpy(data, value.data.data(), value.data.size());
    return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY key) {
    if (openKeys().count(key) == 0) return ERROR_INVALID_HANDLE;
    if (callFails("RegCloseKey")) return ERROR_GEN_FAILURE;
    openKeys().erase(key);
    return ERROR_SUCCESS;
}
