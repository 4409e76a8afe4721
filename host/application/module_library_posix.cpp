// Applications as shared objects.
#include <dlfcn.h>

#include "host/application/module_library.h"

namespace host {

bool ModuleLibrary::open(const std::string& path, std::string& error) {
    // Without a slash the loader would search its own folders instead of taking the file.
    m_handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_handle == nullptr) {
        const char* reason = dlerror();
        error = reason != nullptr ? reason : "unknown reason";
        return false;
    }
    Dl_info info;
    void* entry = symbol("acrxEntryPoint");
    m_base = entry != nullptr && dladdr(entry, &info) != 0 ? info.dli_fbase : nullptr;
    return true;
}

void ModuleLibrary::close() {
    if (m_handle != nullptr) dlclose(m_handle);
    m_handle = nullptr;
}

void* ModuleLibrary::symbol(const char* name) const {
    return m_handle != nullptr ? dlsym(m_handle, name) : nullptr;
}

bool ModuleLibrary::contains(const void* address) const {
    Dl_info info;
    return m_base != nullptr && dladdr(address, &info) != 0 && info.dli_fbase == m_base;
}

}  // namespace host
