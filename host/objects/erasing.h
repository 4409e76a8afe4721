// Erasing objects with what they own.
#pragma once

#include "host/store/object_body.h"

namespace host {

/// Erases a body with all it owns: sub-entities, sequence end, extension dictionary
/// with its entries. No access checks.
void eraseWithOwned(ObjectBody& body);

}  // namespace host
