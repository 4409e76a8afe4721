// The commands that modules registered.
#pragma once

#include <optional>
#include <string>

#include "host/editor/run/command_runner.h"

namespace host {

/// The first command with that name (in any case) in the order of the groups.
std::optional<RegisteredCommand> findModuleCommand(const std::wstring& name);
void clearModuleCommands();

}  // namespace host
