// The session of a drawing in the browser.
#pragma once

#include "drafthost/options.h"
#include "host/application/session.h"

/// Empty when this build has a window; else what is missing, as one line.
const char* missingForWindow();
/// Lets a page work on the session until it is over. Gives the exit status.
int runWindow(host::Session& session, const Options& options);
