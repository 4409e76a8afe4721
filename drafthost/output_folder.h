// The folder that gets each drawing after its script.
#pragma once

#include <string>

#include "drafthost/options.h"

/// Where a drawing goes; empty without an output folder.
std::string outputPath(const Options& options, const std::string& file);
/// Refuses what would overwrite a drawing of the run, then makes the folder. Gives the exit status,
/// with a line printed when it is not kDone.
int prepareOutputFolder(const Options& options);
