// What tests and the program set up in the stood-in Windows, and what they may ask of it.
//
// Effects (message boxes, debugger and standard output, files written) are in effects.h, time is in
// clock.h, and calls fail through faults.h. Only the native build has this.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// Puts everything below back to its start: no registry value, no debugger, no file locked, the
/// process's own environment, module files and version resource.
void resetWindows();

/// Sets one registry value of any type (REG_SZ 1, REG_BINARY 3, REG_DWORD 4, ...). The key starts
/// with "HKCU\" or "HKLM\".
void setRegistryValue(const std::wstring& key, const std::wstring& name, std::uint32_t type,
                      std::vector<std::uint8_t> data);
void setRegistryDword(const std::wstring& key, const std::wstring& name, std::uint32_t value);
void setRegistryText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
/// "HKCU\Software\<company>\<product>" of the version resource: where the module's per-user
/// switches are.
std::wstring moduleRegistryKey();
/// Keys that were opened and not closed; closes them.
long openRegistryKeys();
void closeRegistryKeys();

/// Whether a debugger counts as attached, and how often the module broke into it since the reset.
void setDebuggerPresent(bool present);
long breakpointsHit();

/// Overrides an environment variable; no value: it is not defined. Without an override "TEMP" is
/// the process's own, else "TMPDIR", else "/tmp".
void setEnvironment(const std::wstring& name, std::optional<std::wstring> value);
/// Overrides the file name of a module handle; null is the program.
void setModuleFileName(const void* module, const std::wstring& path);
/// The next `opens` attempts to open a file fail with a sharing violation.
void lockFiles(long opens);
/// Start time of the workstation service; none: its statistics cannot be had, as at start.
void setWorkstationStart(std::optional<std::time_t> moment);

/// Strings of the version resource that every module file has.
struct VersionResource {
    std::wstring companyName;
    std::wstring productName;
    std::wstring fileVersion;
};
/// Overrides the version resource; none: files have no such resource.
void setVersionResource(std::optional<VersionResource> resource);

}  // namespace host
