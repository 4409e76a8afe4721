// The diagnostic log files: their names, their folder, appending, deleting.
#pragma once

#include <string>

/// The user's temporary folder with "Velmo Diagnostics\" behind it; empty when the environment
/// names no temporary folder.
std::wstring diagnosticsFolder();
/// Makes the diagnostics folder with all missing parents; true when it is there afterwards.
bool createDiagnosticsFolder();

/// The working log of this process, named by the time of its first use and kept from then on. Empty
/// without a diagnostics folder.
std::wstring workingLogName();
/// The log that a working log becomes at shut-down; the same for every process.
std::wstring finalLogName();
bool fileExists(const std::wstring& name);

/// Deletes the working log if it can be opened.
void deleteWorkingLog();
/// Appends one text and a line end to the working log, a new file beginning with a block about the
/// machine. Tries ten times, half a second apart, while the file cannot be written; then gives up
/// silently.
void appendToWorkingLog(const std::wstring& text);
