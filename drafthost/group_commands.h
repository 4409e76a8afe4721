// What the program adds to a session about groups: its commands GROUPEACH, GROUPLIST, GROUPREPAIR
// and PICTURE.
#pragma once

/// Registers them; call it once a session exists.
void registerGroupCommands();
