// What annotative entities keep for each of their scales.
#pragma once

#include <vector>

#include "host/store/object_body.h"

namespace host {

/// The objects that describe an entity at its annotation scales, live ones only; empty for an
/// entity that is not annotative. They hang in the entity's extension dictionary.
std::vector<Index> scaleData(const ObjectBody& entity);

}  // namespace host
