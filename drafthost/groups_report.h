// The groups of drawings, as the program lists and draws them.
#pragma once

#include <string>

#include "drafthost/options.h"
#include "host/objectarx/database.h"

/// Lists the groups of files as text or JSON. Gives the exit status.
int listGroups(const Options& options);
/// Draws a file and its groups. Gives the exit status.
int drawFile(const Options& options);

/// Writes the picture of a space (an index of the drawing's store) to a file, which is replaced as
/// a whole. Empty, or why it failed.
std::string writePicture(AcDbDatabase& drawing, unsigned space, const std::string& title,
                         const std::string& path);
