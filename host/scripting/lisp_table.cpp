// The LISP functions of one document, by name.
#include "host/scripting/lisp_table.h"

#include <iterator>

#include "host/text/text_codec.h"

namespace host {

void LispTable::define(const std::wstring& name, Module* owner, int code) {
    m_functions[foldCase(name)] = {owner, code, nullptr};
}

bool LispTable::bindDirect(Module* owner, int code, int (*function)()) {
    for (auto& [name, entry] : m_functions) {
        if (entry.owner != owner || entry.code != code) continue;
        entry.direct = function;
        return true;
    }
    return false;
}

bool LispTable::remove(const std::wstring& name) { return m_functions.erase(foldCase(name)) != 0; }

void LispTable::removeAllOf(const Module* owner) {
    for (auto at = m_functions.begin(); at != m_functions.end();) {
        at = at->second.owner == owner ? m_functions.erase(at) : std::next(at);
    }
}

const LispFunction* LispTable::find(const std::wstring& name) const {
    const auto at = m_functions.find(foldCase(name));
    return at == m_functions.end() ? nullptr : &at->second;
}

std::vector<std::wstring> LispTable::namesOf(const Module* owner) const {
    std::vector<std::wstring> names;
    for (const auto& [name, entry] : m_functions) {
        if (entry.owner == owner) names.push_back(name);
    }
    return names;
}

}  // namespace host
