// The lines of hatch patterns, cut at the boundary.
#pragma once

#include "host/geometry/shapes.h"
#include "picture/paths.h"

namespace picture {

/// Writes pattern lines of one picture, up to so many strokes in all and in bounded time.
class Hatching {
  public:
    explicit Hatching(long long mostStrokes) : m_left(mostStrokes) {}

    /// Adds the lines of the patterns between two marks inside the strokes between them. False, and
    /// nothing is added, where there are none, where they stand closer than `pixel`, or where they
    /// would be too many: then a tint says more.
    bool add(PathData& path, const host::Outline& outline, const host::OutlineMark& from,
             const host::OutlineMark& end, double pixel);

  private:
    long long m_left;             ///< strokes
    long long m_work = 30000000;  ///< edges looked at, crossings and dashes
};

}  // namespace picture
