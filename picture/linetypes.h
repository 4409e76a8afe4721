// The dash patterns of a drawing's line types.
#pragma once

#include <string_view>
#include <vector>

#include "host/store/store.h"

namespace picture {

/// Lengths along a stroke: a dash, a gap and so on in turns, with an even number of them; a dot is
/// a dash of length 0. None is a stroke without gaps.
using Dashes = std::vector<double>;

/// The pattern of a line type (its name in the drawing's encoding) in units of its definition.
Dashes patternOf(const host::Store& store, std::string_view linetype);
/// What the whole drawing multiplies patterns by.
double linetypeScale(const host::Store& store);

}  // namespace picture
