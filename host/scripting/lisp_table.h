// The LISP functions that modules have defined in one document.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace host {

class Module;

/// One definition: whose it is, its code, and the function to call directly when there is one.
struct LispFunction {
    Module* owner = nullptr;
    int code = 0;
    int (*direct)() = nullptr;
};

/// Definitions by upper-case name.
class LispTable {
  public:
    /// Defines a name; a later definition replaces the earlier one.
    void define(const std::wstring& name, Module* owner, int code);
    /// Binds a direct function to the definition of a code; false when `owner` has none.
    bool bindDirect(Module* owner, int code, int (*function)());
    /// False when the name is not defined.
    bool remove(const std::wstring& name);
    /// Removes all definitions of a module, without a word.
    void removeAllOf(const Module* owner);
    const LispFunction* find(const std::wstring& name) const;
    std::vector<std::wstring> namesOf(const Module* owner) const;

  private:
    std::map<std::wstring, LispFunction> m_functions;
};

}  // namespace host
