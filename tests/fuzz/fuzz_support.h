// What the fuzz targets share: how they tell of a fault.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

/// Called by libFuzzer with each input. Linkage and name are its own.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace fuzz {

/// Ends the process, for libFuzzer to keep the input, when there is a fault.
inline void expectNone(const std::string& fault) {
    if (fault.empty()) return;
    std::fprintf(stderr, "FAULT: %s\n", fault.c_str());
    std::abort();
}

}  // namespace fuzz
