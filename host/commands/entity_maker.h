// Making the entities that the host's own commands draw.
#pragma once

#include <string>
#include <string_view>

#include "host/objectarx/object_id.h"

namespace host {

class Store;

/// Appends an entity to the drawing's current space: complete common tags, layer CLAYER, colour
/// by layer. `tags` are its own tags in UTF-8, from its first subclass marker on. Gives its id.
AcDbObjectId addEntity(Store& store, std::string_view type, const std::string& tags);

}  // namespace host
