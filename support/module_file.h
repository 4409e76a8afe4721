// File names of loaded modules.
#pragma once

#include <string>

#include "platform.h"

/// Path of a module's file, null meaning the program; empty when it cannot be had.
std::wstring modulePath(HMODULE hModule);
/// File name with extension, from the long form of the path.
std::wstring moduleFileName(HMODULE hModule);
/// File name without folder and extension.
std::wstring moduleName(HMODULE hModule);
