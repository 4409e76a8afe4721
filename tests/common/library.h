// Drawings that nobody here made.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "gtest/gtest.h"

namespace tests {

/// The drawings of Debian's librecad-data, which ./check installs, by name.
inline std::vector<std::string> libraryDrawings() {
    std::vector<std::string> files;
    std::error_code missing;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator("/usr/share/librecad", missing)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".dxf" || extension == ".DXF") files.push_back(entry.path().string());
    }
    EXPECT_GT(files.size(), 1000u) << "install Debian's librecad-data";
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace tests
