// Which application a call came from.
#pragma once

#include <string>

namespace host {

/// File name (without folders) of the loaded library or program that holds `address`; "unknown"
/// when none does.
std::wstring libraryNameAt(const void* address);

}  // namespace host
