// The tags of one body under a rigid map.
#pragma once

#include "host/geometry/rigid_map.h"
#include "host/tags/tag_edit.h"
#include "host/transform/transform_rules.h"

namespace host {

/// Maps the tags that the rule names.
void transformTags(TagEdit& edit, const TransformRule& rule, const ObjectFrame& frame);
/// Maps a hatch: elevation, boundary paths, pattern lines, seed points, gradient.
void transformHatch(TagEdit& edit, const ObjectFrame& frame);
/// Reflects the place and direction of a centred paragraph text without turning it over, so that it
/// reads from left to right.
void transformReadable(TagEdit& edit, const ObjectFrame& frame);
/// Maps the points and directions in extended data.
void transformExtendedData(TagEdit& edit, const RigidMap& map);

}  // namespace host
