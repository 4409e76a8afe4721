// Applications as dynamic-link libraries.
#include <windows.h>

#include "host/application/module_library.h"
#include "host/text/text_codec.h"

namespace host {

bool ModuleLibrary::open(const std::string& path, std::string& error) {
    const std::wstring wide = fromUtf8(path);
    HMODULE library = LoadLibraryExW(wide.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr) {
        error = "LoadLibrary failed with error " + std::to_string(GetLastError());
        return false;
    }
    m_handle = library;
    m_base = library;
    return true;
}

void ModuleLibrary::close() {
    if (m_handle != nullptr) FreeLibrary(static_cast<HMODULE>(m_handle));
    m_handle = nullptr;
}

void* ModuleLibrary::symbol(const char* name) const {
    if (m_handle == nullptr) return nullptr;
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(m_handle), name));
}

bool ModuleLibrary::contains(const void* address) const {
    HMODULE holder = nullptr;
    constexpr DWORD kFlags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(kFlags, static_cast<const wchar_t*>(address), &holder)) return false;
    return holder == m_base;
}

}  // namespace host
