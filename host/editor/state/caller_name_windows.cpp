// Library of an address, by the module list of the process.
#include <windows.h>

#include "host/editor/state/caller_name.h"

namespace host {

std::wstring libraryNameAt(const void* address) {
    HMODULE library = nullptr;
    const DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(flags, static_cast<LPCWSTR>(address), &library)) return L"unknown";
    wchar_t path[MAX_PATH] = {};
    if (GetModuleFileNameW(library, path, MAX_PATH) == 0) return L"unknown";
    const std::wstring text = path;
    return text.substr(text.find_last_of(L"\\/") + 1);
}

}  // namespace host
