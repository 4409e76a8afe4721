// One drawing of --make-groups or --repair.
#pragma once

#include "drafthost/job.h"

/// Makes groups in model space, or repairs the groups of the drawing that the session has just
/// opened, prints a line for each change and saves: into the folder in any case, over the drawing
/// itself only what was changed. Gives the exit status; after --repair kDamaged, with a line for
/// each, when a group is not whole or something is stray.
int runGroupJob(host::Session& session, const Options& options, const Job& job);
