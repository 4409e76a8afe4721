// A drawing and its groups as an SVG picture.
#pragma once

#include <string>

#include "host/store/store.h"
#include "inspection/inspection.h"

namespace picture {

/// One space of a drawing, complete and by itself: style and titles, no script. Pointing at a
/// member of a group or at its line in the legend lights the whole group; a click or the Tab key
/// keeps it lit. `title` names the drawing, `spaceName` the space as the inspection does. The text
/// grows with the drawing as its file does; block references become frames where it would grow
/// beyond that.
std::string draw(const host::Store& store, host::Index space, const std::string& title,
                 const std::string& spaceName, const inspection::Inspection& inspection);

}  // namespace picture
