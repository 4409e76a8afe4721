// How much of a drawing the screen that is stood in for shows.
#pragma once

#include <optional>

#include "host/geometry/shapes.h"

namespace host {

class Store;

/// Height of the view in drawing units: of the viewport *Active, in a layout of its paper. A
/// drawing without one shows its extents as they are when they are first asked for, which is not
/// saved with it; a sheet when it is empty.
double viewHeight(const Store& store);

/// Shows a box: becomes the view of the drawing, or of this session when the drawing has no place
/// for it. False, and nothing changes, when the box has no extent or is not finite.
bool showBox(Store& store, const Box& box);
/// Makes the view so many times as high, around the same centre; `factor` is above 0. False as
/// above.
bool scaleView(Store& store, double factor);

/// Smallest box around what is drawn in the current space; nothing when it is empty.
std::optional<Box> extentsOf(const Store& store);

}  // namespace host
