// Which tags of each entity type are points, directions, lengths and angles.
#pragma once

#include <cstddef>
#include <string_view>

#include "host/store/object_body.h"

namespace host {

namespace role {

/// What a tag means to a rigid map. Tags that no field names are lengths, texts and references
/// and stay.
enum Role {
    Point,           ///< in world coordinates
    Vector,          ///< in world coordinates
    XDirection,      ///< in world coordinates; the first of its code, absent the X axis
    Chain,           ///< points in world coordinates that a mirroring puts in the opposite order
    ObjectPoint,     ///< in object coordinates
    PlanePoint,      ///< X and Y in object coordinates
    Height,          ///< Z in object coordinates
    HeightOfPoint,   ///< point of which only Z counts
    Extrusion,       ///< Z axis of the object coordinates
    Degrees,         ///< angle in the object's XY plane
    BackDegrees,     ///< the same where not Y but X is turned over by a negative factor
    Begin,           ///< of a counter-clockwise arc, in degrees
    End,             ///< of the same arc
    BeginParameter,  ///< of an elliptic arc, in radians from its major axis
    EndParameter,
    DirectionAngle,  ///< of a text; a mirrored one says it with the direction 11 instead
    AxisAngle,       ///< degrees, clockwise
    Opposite,        ///< changes its sign where the sense of rotation does
    UpsideDown,      ///< flags of which bit 4 mirrors a text at its base line
    Handed,          ///< 0 or 1; the other one of the two where mirrored
};

}  // namespace role

using role::Role;

struct FieldRule {
    int code;
    Role role;
    /// Subclass to which the tag is added when its absence means `absent` and that changes; null
    /// when an absent tag means nothing.
    const char* addTo = nullptr;
    double absent = 0.0;
    /// The code means something else in other subclasses, so that it counts in that one only.
    bool thereOnly = false;
};

/// How entities of a type are mirrored.
enum class Mirroring {
    Refused,
    InPlane,    ///< the extrusion is mirrored, and what lies in the object's plane
    AlongAxes,  ///< the same, at lines along X or Y only: the object cannot be turned
    TurnsOver,  ///< the extrusion comes to point the other way, so that the back is seen
};

/// What tells the meaning of a tag.
enum class Layout {
    Fields,       ///< its code, and that in few cases with the subclass
    Hatch,        ///< the path, edge or pattern in which it stands
    Multileader,  ///< the braces in which it stands
};

struct TransformRule {
    std::string_view type;
    Mirroring mirroring;
    Layout layout;
    const FieldRule* fields;
    std::size_t count;

    /// Field of a tag that stands in a subclass part (empty: before the first marker), or null.
    const FieldRule* find(int code, std::string_view subclass) const;
};

/// Rule of a body's type; null when it cannot be transformed.
const TransformRule* transformRule(const ObjectBody& body);

}  // namespace host
