// The viewport that is the paper of a layout itself.
#pragma once

#include "host/store/object_body.h"

namespace host {

/// True for the first VIEWPORT of a layout's block: number (69) 1, or no number and named by the
/// layout (331). The user can neither select nor erase it; the layout would be left without paper
/// (assumed). Constant time.
bool isPaperViewport(const ObjectBody& entity);

/// Makes the layout whose last active viewport (331) is the source of a clone in the same block
/// name the clone: what moves by cloning stays the viewport that was worked in (chosen).
void passOnLastViewport(const ObjectBody& source, const ObjectBody& clone);

}  // namespace host
