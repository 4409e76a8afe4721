// What the program adds to a session about groups: its commands GROUPEACH, GROUPLIST, GROUPREPAIR
// and PICTURE.
#pragma once

#include "host/application/session.h"

/// Registers them for a session, which has to outlive their use.
void registerGroupCommands(const host::Session& session);
