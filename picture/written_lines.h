// Words of a drawing as lines of a font that stands where the drawing says.
#pragma once

#include <string>
#include <vector>

#include "host/geometry/shapes.h"
#include "picture/paths.h"

namespace picture {

/// Mean width of a character, as a part of the size of common fonts.
constexpr double kCharacterWidth = 0.55;

/// One line, without formatting codes.
struct WrittenLine {
    Spot at;              ///< of its alignment point on the base line, in picture units
    host::Vec along, up;  ///< where a unit along and one across goes, in the drawing's directions
    double size = 0;      ///< of the font, in picture units
    double anchor = 0;    ///< part of its width before the alignment point: 0, 0.5 or 1
    double fitted = 0;    ///< width that it fills whatever the font, in picture units; 0 for none
    std::wstring words;
};

/// Lines of the words that stand in an area of four corners; none when it has no size.
std::vector<WrittenLine> writtenLines(const host::Writing& writing,
                                      const std::vector<host::Vec>& area, const View& view);

}  // namespace picture
