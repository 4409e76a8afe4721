// The registry: keys and values in memory, filled by the control side and read by the module.
#include <cstring>
#include <set>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/windows/state.h"

namespace host {
namespace {

/// An open key; HKEY points to it.
struct OpenKey {
    std::wstring path;
};

std::set<OpenKey*>& openKeys() {
    static std::set<OpenKey*> instance;
    return instance;
}

/// Null for a handle that is no open key.
OpenKey* openKey(HKEY key) {
    auto* const open = reinterpret_cast<OpenKey*>(key);
    return openKeys().count(open) != 0 ? open : nullptr;
}

std::wstring rootPath(HKEY key) {
    if (key == HKEY_CURRENT_USER) return L"hkcu";
    if (key == HKEY_LOCAL_MACHINE) return L"hklm";
    const OpenKey* const open = openKey(key);
    return open != nullptr ? open->path : std::wstring();
}

}  // namespace

bool setRegistryValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                      std::vector<std::uint8_t> data) {
    windowsState().registry[lowerCase(key)][lowerCase(name)] = {type, std::move(data)};
    return true;
}

long openRegistryKeys() { return static_cast<long>(openKeys().size()); }

void closeRegistryKeys() {
    for (OpenKey* open : openKeys())
        delete open;
    openKeys().clear();
}

}  // namespace host

using namespace host;

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM, PHKEY result) {
    if (callFails("RegOpenKeyExW")) return ERROR_GEN_FAILURE;
    if (options != 0) return ERROR_INVALID_PARAMETER;
    const std::wstring root = rootPath(key);
    if (root.empty()) return ERROR_INVALID_HANDLE;
    const std::wstring path = root + L"\\" + lowerCase(subKey);
    const auto& registry = windowsState().registry;
    // A key is there when it or a key below it has a value.
    const std::wstring below = path + L"\\";
    const auto next = registry.lower_bound(below);
    const bool hasBelow =
        next != registry.end() && next->first.compare(0, below.size(), below) == 0;
    if (registry.count(path) == 0 && !hasBelow) return ERROR_FILE_NOT_FOUND;
    auto* const open = new OpenKey{path};
    openKeys().insert(open);
    *result = reinterpret_cast<HKEY>(open);
    return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
    if (callFails("RegQueryValueExW")) return ERROR_GEN_FAILURE;
    recordEffect(EffectKind::RegistryRead, name);
    const OpenKey* const open = openKey(key);
    if (open == nullptr) return ERROR_INVALID_HANDLE;
    const RegistryKey& values = windowsState().registry[open->path];
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
    OpenKey* const open = openKey(key);
    if (open == nullptr) return ERROR_INVALID_HANDLE;
    if (callFails("RegCloseKey")) return ERROR_GEN_FAILURE;
    openKeys().erase(open);
    delete open;
    return ERROR_SUCCESS;
}
