// What the repair pass would make of the markers of one space.
#pragma once

#include <vector>

#include "inspection/inspection.h"
#include "inspection/markers.h"

namespace inspection {

/// A begin marker and the end marker that the walk from it reaches: indexes into Reading::markers.
struct Pair {
    std::size_t begin = 0;
    std::size_t end = 0;
    long between = 0;         ///< entities that the walk meets between them
    bool holdsBegin = false;  ///< another begin marker stands between them
};

/// Plays the repair pass on the markers of a space, newest begin marker first, and gives what it
/// does to each pair. Only pairs that share their end depend on that order, which is the host's.
std::vector<Repair> forecast(const Reading& reading, Steps& steps, const std::vector<Pair>& pairs);

/// True when the text of a marker's first attribute is the other one's handle.
bool names(const Marker& marker, const Marker& other);

}  // namespace inspection
