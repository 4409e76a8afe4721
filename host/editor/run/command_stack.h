// The commands that modules registered.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/objectarx/command_stack.h"

namespace host {

struct RegisteredCommand {
    std::wstring group, globalName, localName;
    Adesk::Int32 flags;
    AcRxFunctionPtr function;
};

/// All of them in the order of the groups.
std::vector<RegisteredCommand> registeredCommands();
/// The first command with that name (in any case) in that order.
std::optional<RegisteredCommand> findModuleCommand(const std::wstring& name);
/// Removes the commands whose function `isInLibrary` takes for its own; gives their global names.
std::vector<std::wstring> removeCommandsOf(const std::function<bool(const void*)>& isInLibrary);
void clearModuleCommands();

}  // namespace host
