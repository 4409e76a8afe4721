// The name under which all sources of this room report failed checks.
#pragma once

#include "diagnostics.h"

/// Reports name the group commands as one source; the thousands of the line tell the file, the rest
/// the line in it.
constexpr CheckSource groupCommands(int thousands) { return {L"GroupCommands", 1000 * thousands}; }

constexpr CheckSource kMakeGroup = groupCommands(1);
constexpr CheckSource kUngroup = groupCommands(2);
constexpr CheckSource kRemoveMember = groupCommands(3);
constexpr CheckSource kRepair = groupCommands(4);
constexpr CheckSource kGroupMarkers = groupCommands(5);
