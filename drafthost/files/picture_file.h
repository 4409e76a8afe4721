// Where pictures may go, and putting them there.
#pragma once

#include <string>
#include <vector>

/// True for a name that ends in ".svg", whatever its case.
bool isPictureName(const std::string& path);
/// True for a folder that gets a picture of each drawing: it ends with a separator.
bool isPictureFolder(const std::string& path);

/// Puts a picture under a name as a save does: beside, then renamed over a former one, whose mode
/// it takes; links are followed. Only regular files under picture names are replaced, and none of
/// `drawings`, which are in use. Empty, or why it failed; then nothing has changed.
std::string writePictureFile(const std::string& path, const std::string& svg,
                             const std::vector<std::string>& drawings);
