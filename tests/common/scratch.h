// Files that a test writes and reads.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "host/dxf/file/file_access.h"

namespace tests {

/// An empty folder, gone at its end; in memory where possible: what is saved is flushed to the
/// disk.
class ScratchFolder {
  public:
    ScratchFolder() {
        static int count = 0;
        const std::filesystem::path memory = std::filesystem::absolute("/dev/shm");
        m_path = (exists(memory) ? memory : std::filesystem::temp_directory_path()) /
                 ("velmo_" + std::to_string(host::processNumber()) + "_" + std::to_string(++count));
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
    std::string file(const std::string& name) const {
        return (m_path / name).make_preferred().string();
    }

  private:
    std::filesystem::path m_path;
};

inline std::string contentOf(const std::filesystem::path& path) {
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

inline void write(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

}  // namespace tests
