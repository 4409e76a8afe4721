// What tests and the program set up in Windows, stood in for or real.
//
// On real Windows all of it is real, but the registry that this process sees becomes one of its own
// with the first value set. What only the stood-in Windows can be made to do is in
// fake_windows.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// Puts everything back: no registry value, the process's own environment, no file locked; and all
/// of fake_windows.h. On real Windows the process then sees the user's registry again.
void resetWindows();

/// Sets one registry value of any type (REG_SZ 1, REG_BINARY 3, REG_DWORD 4, ...). The key starts
/// with "HKCU\" or "HKLM\". False when the system refuses it.
bool setRegistryValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                      std::vector<std::uint8_t> data);
bool setRegistryDword(const std::wstring& key, const std::wstring& name, std::uint32_t value);
bool setRegistryText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
/// "HKCU\Software\<company>\<product>" of the version resource: where the module's per-user
/// switches are.
std::wstring moduleRegistryKey();

/// Overrides an environment variable; no value: it is not defined. Stood in, "TEMP" is without an
/// override the process's own, else "TMPDIR", else "/tmp".
void setEnvironment(const std::wstring& name, std::optional<std::wstring> value);

/// Locks a file that is there: the next `attempts` to open or delete it fail with a sharing
/// violation. On real Windows another handle holds it for half a second an attempt, less a quarter.
void lockFile(const std::wstring& path, long attempts);

}  // namespace host
