// The verdict on one group and why, in words for a drafter.
#pragma once

#include "inspection/forecast.h"
#include "inspection/inspection.h"
#include "inspection/markers.h"

namespace inspection {

/// Fills state, reason and outlook of a group whose other fields stand already.
void judge(Group& group, const Marker& begin, const Marker& end, const Pair& pair);

/// Why a marker that belongs to no pair is one; with what it is.
void explain(Stray& stray, const Marker& marker);

}  // namespace inspection
