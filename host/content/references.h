// Which tags name symbols of the drawing's tables.
#pragma once

#include "host/store/object_body.h"
#include "host/tags/tag_walk.h"

namespace host {

/// Table whose record the tag names at which a walk over the tags of `body` stands, or null.
const char* tableNamedBy(const ObjectBody& body, const TagWalk& tag);

}  // namespace host
