// Where the drawing lies on the sheet, which is measured in pixels, and the bar that shows its
// scale.
#pragma once

#include <optional>
#include <string>

#include "host/store/store.h"
#include "picture/paths.h"

namespace picture {

/// Box on the sheet.
struct Area {
    double left, top, right, bottom;
};

struct Sheet {
    View view;                 ///< its units are those of the drawing
    double pixel = 1;          ///< size of one in drawing units
    double left = 0, top = 0;  ///< of the view's box on the sheet
    bool cut = false;          ///< nothing is shown outside of the box

    Spot at(const host::Vec& p) const {
        const Spot spot = view.spot(p);
        return {spot.x / pixel + left, spot.y / pixel + top};
    }
    double width() const { return (view.box.right - view.box.left) / pixel; }
    double height() const { return (view.box.top - view.box.bottom) / pixel; }
    /// Opens an element whose content is in units of the view.
    std::string openDrawing() const;
    /// What such elements refer to; empty unless the sheet cuts.
    std::string definitions() const;
};

/// A sheet of at most so many pixels for what has these bounds, or for a window. A drawing without
/// size gets some. As many decimals as its size needs.
Sheet sheetFor(const std::optional<host::Box>& bounds, const std::optional<host::Box>& window,
               double mostWidth, double mostHeight);

/// A bar of a round length with its left end at a place of the sheet, labelled in the unit of the
/// drawing.
std::string scaleBar(const Sheet& sheet, const host::Store& store, const Spot& at);

/// Appends ` name="value"`.
void addAttribute(std::string& svg, const char* name, double value, int decimals = 2);
/// A text of the sheet in a style class.
std::string sheetText(const char* style, double x, double y, const std::string& text);
/// The start of a text with an ellipsis where more than `most` characters are there. UTF-8.
std::string shortened(const std::string& text, std::size_t most);

}  // namespace picture
