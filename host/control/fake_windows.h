// What only the stood-in Windows can be made to do; the native build alone has it.
//
// Effects (message boxes, debugger and standard output, files written) are in effects.h, time is in
// clock.h, and calls fail through faults.h.
#pragma once

#include <ctime>
#include <optional>
#include <string>

namespace host {

/// Keys that were opened and not closed; closes them.
long openRegistryKeys();
void closeRegistryKeys();

/// Overrides an environment variable; no value: it is not defined. "TEMP" is without an override
/// the process's own, else "TMPDIR", else "/tmp".
void setEnvironment(const std::wstring& name, std::optional<std::wstring> value);

/// Locks a file that is there: the next `attempts` to open or delete it fail with a sharing
/// violation.
void lockFile(const std::wstring& path, long attempts);

/// Whether a debugger counts as attached.
void setDebuggerPresent(bool present);

/// Overrides the file name of a module handle; null is the program.
void setModuleFileName(const void* module, const std::wstring& path);
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
