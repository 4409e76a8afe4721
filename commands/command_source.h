// The name under which all sources of this room report failed checks.
#pragma once

#include "diagnostics.h"

constexpr CheckSource kMakeGroup = L"GroupCommands";
constexpr CheckSource kUngroup = kMakeGroup;
constexpr CheckSource kRemoveMember = kMakeGroup;
constexpr CheckSource kRepair = kMakeGroup;
constexpr CheckSource kGroupMarkers = kMakeGroup;
