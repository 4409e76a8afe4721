// Files to try that were not written for one test: drawings that nobody here made, former findings.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

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

/// What fuzzing found in a kind of input, "dxf" or "script", and the seeds that it starts from; see
/// tests/fuzz.
inline std::vector<std::filesystem::path> fuzzInputs(const char* kind) {
    std::vector<std::filesystem::path> files;
    for (const char* origin : {"/fuzz/regressions/", "/fuzz/corpus/"})
        for (const auto& entry :
             std::filesystem::directory_iterator(std::string(TESTS_FOLDER) + origin + kind))
            files.push_back(entry.path());
    EXPECT_GE(files.size(), 5u) << kind;
    return files;
}

}  // namespace tests
