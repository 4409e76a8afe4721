// The groups of drawings, as the program lists and draws them.
#pragma once

#include <string>

#include "drafthost/options.h"
#include "host/objectarx/database.h"

/// Lists the groups of files as text or JSON. Gives the exit status.
int listGroups(const Options& options);
/// Draws files and their groups. Gives the exit status.
int drawFiles(const Options& options);

/// The picture of a space (an index of the drawing's store).
std::string pictureOf(AcDbDatabase& drawing, unsigned space, const std::string& title);
