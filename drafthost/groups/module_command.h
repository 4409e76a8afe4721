// A command of the module with answers that are known before.
#pragma once

#include <string>
#include <vector>

#include "host/editor/run/command_runner.h"
#include "host/objectarx/object_id.h"

/// Runs a command with these answers, an empty one being Enter, and with a pick-first set or none.
/// What it prints is shown when it fails only. Not inside a command. Unknown, with a line printed,
/// without the module.
host::CommandStatus runModuleCommand(const std::wstring& name,
                                     const std::vector<std::wstring>& answers,
                                     const std::vector<AcDbObjectId>& picked = {});
