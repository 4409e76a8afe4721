// A shared library that holds an application, on whatever system this is.
#pragma once

#include <string>

namespace host {

/// One loaded library. Closing it runs its static destructors.
class ModuleLibrary {
  public:
    ModuleLibrary() = default;
    ~ModuleLibrary() { close(); }
    ModuleLibrary(const ModuleLibrary&) = delete;
    ModuleLibrary& operator=(const ModuleLibrary&) = delete;

    /// Loads the library at `path` (UTF-8, absolute: a mere name would be searched for); static
    /// construction runs. False with the system's reason in `error`.
    bool open(const std::string& path, std::string& error);
    void close();
    /// Address of an exported function, or null.
    void* symbol(const char* name) const;
    /// True when the address lies in this library.
    bool contains(const void* address) const;

  private:
    void* m_handle = nullptr;
    const void* m_base = nullptr;
};

}  // namespace host
