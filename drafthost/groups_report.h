// The groups of drawings, as the program lists and draws them.
#pragma once

#include <memory>
#include <string>

#include "drafthost/options.h"
#include "host/objectarx/database.h"

/// Loads a drawing; null when it cannot be read, with a line printed and, where the options want
/// JSON, the object that says so.
std::unique_ptr<AcDbDatabase> loadForReading(const Options& options, const std::string& file);
/// Lists the groups of a file as text or JSON. Gives the exit status.
int listGroups(const Options& options, const std::string& file);
/// Draws files and their groups. Gives the exit status.
int drawFiles(const Options& options);

/// The picture of a space (an index of the drawing's store), titled by the name of the file.
std::string pictureOf(AcDbDatabase& drawing, unsigned space, const std::string& path);
