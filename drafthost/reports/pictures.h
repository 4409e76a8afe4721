// Pictures of drawings and their groups.
#pragma once

#include <string>

#include "drafthost/files/output_folder.h"
#include "host/objectarx/database.h"

/// Draws a file and its groups as the options say. Gives the exit status.
int drawFile(const Options& options, const OutputFolder& folder, const std::string& file);

/// The picture of a space (an index of the drawing's store), titled by the name of the file.
std::string pictureOf(AcDbDatabase& drawing, unsigned space, const std::string& path);
