// The groups of drawings, as the program lists them.
#pragma once

#include <string>

#include "drafthost/options.h"

/// Lists the groups of a file as text or JSON. Gives the exit status.
int listGroups(const Options& options, const std::string& file);
