// What the program adds to a session about groups: its commands GROUPEACH, GROUPLIST, GROUPREPAIR
// and PICTURE.
#pragma once

#include "drafthost/groups/group_watch.h"

/// Registers them in the session; they tell what the watch has seen, which has to outlive their
/// use.
void registerGroupCommands(GroupWatch* watch);
