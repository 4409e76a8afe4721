// The groups of one body under a rigid map.
#pragma once

#include "host/database/group_edit.h"
#include "host/database/rigid_map.h"
#include "host/database/transform_rules.h"

namespace host {

/// Maps the groups that the rule names.
void transformGroups(GroupEdit& edit, const TransformRule& rule, const ObjectFrame& frame);
/// Maps a hatch: elevation, boundary paths, pattern lines, seed points, gradient.
void transformHatch(GroupEdit& edit, const ObjectFrame& frame);
/// Reflects the place and direction of a centred paragraph text without turning it over, so that it
/// reads from left to right.
void transformReadable(GroupEdit& edit, const ObjectFrame& frame);
/// Maps the points and directions in extended data.
void transformExtendedData(GroupEdit& edit, const RigidMap& map);

}  // namespace host
