// The block about the machine at the start of a new diagnostic log file.
#pragma once

#include <string>

/// Begins with "Diagnostics started: " and the local time, ends with a ruler line; every line has
/// its line end. Values that the machine does not have are left out. `diagnosticsFolder` is where
/// the log stands.
std::wstring logHeader(const std::wstring& diagnosticsFolder);
