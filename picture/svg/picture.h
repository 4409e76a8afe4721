// A drawing and its groups as an SVG picture.
#pragma once

#include <optional>
#include <string>

#include "host/geometry/shapes.h"
#include "host/store/store.h"
#include "inspection/inspection.h"

namespace picture {

/// What of a space is drawn.
struct Choice {
    std::wstring layers;              ///< names with wild cards, regardless of case; empty: all
    std::size_t group = 0;            ///< of the space, from 1, alone; 0: everything
    std::optional<host::Box> window;  ///< nothing outside; else all that is drawn
};

/// One space of a drawing, complete and by itself: style and titles, no script. Pointing at a
/// member of a group or at its line in the legend lights the whole group; a click or the Tab key
/// keeps it lit. `title` names the drawing, `spaceName` the space as the inspection does. The text
/// grows with the drawing as its file does; block references become frames where it would grow
/// beyond that. In large drawings entities of one ink share paths and have no titles.
std::string draw(const host::Store& store, host::Index space, const std::string& title,
                 const std::string& spaceName, const inspection::Inspection& inspection,
                 const Choice& choice = {});

}  // namespace picture
