// One drawing of a run with a script.
#pragma once

#include "drafthost/job.h"

/// Runs the script over the drawing that the session has just opened and saves that drawing, and no
/// other, when all went well. Gives the exit status.
int runJob(host::Session& session, const Options& options, const Job& job);
