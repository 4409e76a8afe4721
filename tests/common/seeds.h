// Random tests: each prints the seed that failed, and VELMO_SEED=7 in the environment replays it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace tests {

/// The one seed to try, when the environment names it.
inline std::optional<unsigned> wantedSeed() {
    const char* const wanted = std::getenv("VELMO_SEED");
    if (wanted == nullptr) return std::nullopt;
    return static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
}

/// Tries the seeds from 1 to `count`, or the wanted one alone, until one fails.
template <typename Try>
void tryEachSeed(unsigned count, Try attempt) {
    const std::optional<unsigned> wanted = wantedSeed();
    const unsigned last = wanted.value_or(count);
    for (unsigned seed = wanted.value_or(1); seed <= last && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("VELMO_SEED=" + std::to_string(seed));
        attempt(seed);
    }
}

}  // namespace tests
