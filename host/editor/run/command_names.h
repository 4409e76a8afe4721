// Names that a person types: short forms of commands, and the command nearest to a wrong one.
#pragma once

#include <string>
#include <vector>

namespace host {

/// A short form that everybody types, as the real host's own table has it; upper case.
struct CommandAlias {
    const wchar_t* typed;
    const wchar_t* command;
};
const std::vector<CommandAlias>& commandAliases();

/// The own command that a name in upper case stands for: that of an alias, or SETVAR for the name
/// of a system variable. Empty for any other.
std::wstring commandBehind(const std::wstring& name);

/// What among `names` `typed` was most likely meant to be, as "nearest is LINE; " or, for what is
/// part of names or shares a long part with them, "there are A, B; ". Empty when nothing is near.
std::wstring hintAt(const std::wstring& typed, const std::vector<std::wstring>& names);

}  // namespace host
