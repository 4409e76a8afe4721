// The folder that gets each drawing after its script.
#pragma once

#include <string>

#include "drafthost/options.h"

/// The file that a path means, links followed, to be compared. Names that differ by case alone
/// count as one, as they do in many file systems.
std::wstring fileMeant(const std::string& path);
/// Where a drawing or its picture goes; empty without a folder for them.
std::string outputPath(const Options& options, const std::string& file);
/// Refuses what would overwrite a drawing of the run, then makes the folder. Gives the exit status,
/// with a line printed when it is not kDone.
int prepareOutputFolder(const Options& options);
