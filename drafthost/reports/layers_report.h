// The layers of drawings, as the program lists them.
#pragma once

#include "drafthost/options.h"

/// Lists the layers of a file as text or JSON: entities in all spaces, how many are in groups,
/// what keeps them from being seen or changed. Gives the exit status.
int listLayers(const Options& options, const std::string& file);
