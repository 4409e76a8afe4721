// Strings of a module's version resource.
#pragma once

#include <string>

#include "platform.h"

/// The string of that name ("CompanyName", "ProductName", "FileVersion"), in the resource's first
/// language; empty when the module's file has none.
std::wstring versionString(HMODULE hModule, const wchar_t* name);
