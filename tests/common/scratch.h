// Files that a test writes and reads.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "host/dxf/file/file_access.h"

namespace tests {

/// Folder for files, in memory where possible: what is saved is flushed to the disk.
inline std::filesystem::path quickParent() {
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path();
}

/// An empty folder of this process, by default for the current test; gone at its end.
class ScratchFolder {
  public:
    explicit ScratchFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
        : ScratchFolder(parent, testing::UnitTest::GetInstance()->current_test_info()->name()) {}
    ScratchFolder(const std::filesystem::path& parent, std::string name) {
        std::replace(name.begin(), name.end(), '/', '_');  // of a test with a parameter
        m_path = parent / ("velmo_" + std::to_string(host::processNumber()) + "_" + name);
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::filesystem::path& path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

inline std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

}  // namespace tests
