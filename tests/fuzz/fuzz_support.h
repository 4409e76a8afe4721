// What the fuzz targets share: where they keep files, and how they tell of a fault.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "host/dxf/file/file_access.h"

/// Called by libFuzzer with each input. Linkage and name are its own.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace fuzz {

/// A folder of this process, in memory where possible: each input writes several files.
class Folder {
  public:
    Folder() {
        const std::filesystem::path memory = "/dev/shm";
        const bool inMemory = std::filesystem::exists(memory);
        m_path = (inMemory ? memory : std::filesystem::temp_directory_path()) /
                 ("velmo_fuzz_" + std::to_string(host::processNumber()));
        std::filesystem::create_directories(m_path);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string path() const { return m_path.string(); }

  private:
    std::filesystem::path m_path;
};

/// Ends the process, for libFuzzer to keep the input, when there is a fault.
inline void expectNone(const std::string& fault) {
    if (fault.empty()) return;
    std::fprintf(stderr, "FAULT: %s\n", fault.c_str());
    std::abort();
}

}  // namespace fuzz
