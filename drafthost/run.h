// What the program does, once it knows what is wanted.
#pragma once

#include "drafthost/options.h"

/// Runs a session for each drawing: drawing, module, then the script or the terminal. Gives the
/// exit status.
int runSession(const Options& options);
/// What --help says of commands and exit statuses.
std::string helpOnCommands();
