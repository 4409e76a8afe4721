// The tags of one body under a rigid map.
#pragma once

#include <string>
#include <string_view>

#include "host/geometry/rigid_map.h"
#include "host/tags/tag_edit.h"
#include "host/transform/transform_rules.h"

namespace host {

/// Maps the tags that the rule names.
void transformTags(TagEdit& edit, const TransformRule& rule, const ObjectFrame& frame);
/// Adds tags behind the last own tag of a subclass part, or of the whole entity.
void addToPart(TagEdit& edit, std::string_view subclass, const std::string& tags);
/// Maps a hatch: elevation, boundary paths, pattern lines, seed points, gradient.
void transformHatch(TagEdit& edit, const ObjectFrame& frame);
/// Maps a multileader: leader lines, landings, text or block. False when it has no context data,
/// the braces do not match or the matrix of its block is none.
bool transformMultileader(TagEdit& edit, const RigidMap& map);
/// Maps the embedded objects of an entity of a type: columns of paragraph texts and what is written
/// in multi-line attributes. False for any other. With `staysReadable` the text is not turned over.
bool transformEmbedded(TagEdit& edit, std::string_view type, const RigidMap& map,
                       bool staysReadable);
/// Takes away the stored picture of an entity (its proxy graphics), which would show it where it
/// was; AutoCAD makes a new one when it needs one.
void dropGraphics(TagEdit& edit);
/// Reflects the place and direction of a centred paragraph text without turning it over, so that it
/// reads from left to right.
void transformReadable(TagEdit& edit, const ObjectFrame& frame);
/// Maps the points and directions in extended data.
void transformExtendedData(TagEdit& edit, const RigidMap& map);

}  // namespace host
