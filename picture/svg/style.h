// The look of a picture.
#pragma once

#include <string>

namespace picture {

/// Colours that groups take in turns.
constexpr int kGroupColours = 8;

/// Rules that every picture has.
std::string commonStyle();

}  // namespace picture
