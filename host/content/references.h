// Which tags name symbols of the drawing's tables, and which entities are shown by blocks.
#pragma once

#include "host/store/object_body.h"
#include "host/tags/tag_walk.h"

namespace host {

/// What an anonymous block of its own shows: a dimension in the coordinates of the drawing, a table
/// in its own.
enum class BlockPicture { None, Dimension, Table };
BlockPicture blockPictureOf(std::string_view type);

/// Table whose record the tag names at which a walk over the tags of `body` stands, or null.
const char* tableNamedBy(const ObjectBody& body, const TagWalk& tag);

}  // namespace host
