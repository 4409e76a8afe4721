// Which tags of each entity type are points, directions, lengths and angles.
#pragma once

#include <cstddef>
#include <string_view>

#include "host/store/object_body.h"

namespace host {

/// What a tag means to a rigid map. Tags that no field names are lengths, texts and references
/// and stay.
enum class Role {
    Point,           ///< in world coordinates
    Vector,          ///< in world coordinates
    ObjectPoint,     ///< in object coordinates
    PlanePoint,      ///< X and Y in object coordinates
    Height,          ///< Z in object coordinates
    HeightOfPoint,   ///< point of which only Z counts
    Extrusion,       ///< Z axis of the object coordinates
    Degrees,         ///< angle in the object's XY plane
    Begin,           ///< of a counter-clockwise arc, in degrees
    End,             ///< of the same arc
    BeginParameter,  ///< of an elliptic arc, in radians from its major axis
    EndParameter,
    DirectionAngle,  ///< of a text; a mirrored one says it with the direction 11 instead
    AxisAngle,       ///< degrees, clockwise
    Opposite,        ///< changes its sign where the sense of rotation does
    UpsideDown,      ///< flags of which bit 4 mirrors a text at its base line
};

struct FieldRule {
    int code;
    Role role;
    /// Subclass to which the tag is added when its absence means `absent` and that changes; null
    /// when an absent tag means nothing.
    const char* addTo = nullptr;
    double absent = 0.0;
};

/// How entities of a type are mirrored.
enum class Mirroring {
    Refused,
    InPlane,    ///< the extrusion is mirrored, and what lies in the object's plane
    TurnsOver,  ///< the extrusion comes to point the other way, so that the back is seen
};

struct TransformRule {
    std::string_view type;
    Mirroring mirroring;
    const FieldRule* fields;
    std::size_t count;

    const FieldRule* find(int code) const;
};

/// Rule of a body's type; null when it cannot be transformed. HATCH has one without fields: its
/// tags mean different things in different places (transformHatch).
const TransformRule* transformRule(const ObjectBody& body);

}  // namespace host
