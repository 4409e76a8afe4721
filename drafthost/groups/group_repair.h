// GROUPREPAIR: the module's repair, then its command on what that leaves.
#pragma once

#include "drafthost/groups/group_each.h"

/// Runs REGEN, in which the module mends or dissolves groups, and VelmoGROUPDELETE on stray markers
/// and on entities with stray group records; tells a line for each group that was mended and each
/// stray that was taken away (the watch tells what was dissolved or shortened). Failed or Unknown,
/// with the problem printed, when a command is not there or fails.
host::CommandStatus repairGroups(host::Store& store, const TellLine& tell);
/// The command, which also tells what is left.
host::CommandStatus runGroupRepair(host::Store& store);
