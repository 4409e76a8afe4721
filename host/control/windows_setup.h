// What tests and the program set up in Windows, stood in for or real.
//
// On real Windows all of it is real, but the registry that this process sees becomes one of its own
// with the first value set. What only the stood-in Windows can be made to do is in
// fake_windows.h.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace host {

/// Puts everything back: no registry value, and all of fake_windows.h. On real Windows the process
/// then sees the user's registry again.
void resetWindows();

/// Sets one registry value of any type (REG_SZ 1, REG_BINARY 3, REG_DWORD 4, ...). The key starts
/// with "HKCU\" or "HKLM\". False when the system refuses it.
bool setRegistryValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                      std::vector<std::uint8_t> data);
bool setRegistryDword(const std::wstring& key, const std::wstring& name, std::uint32_t value);
/// "HKCU\Software\<company>\<product>" of the version resource: where the module's per-user
/// switches are.
std::wstring moduleRegistryKey();

}  // namespace host
