// What the value of a tag is, by its code: one table for reading, result buffers, clones, checks.
#pragma once

namespace host {

/// Kinds of values. From SoftPointer on they are references: handles of other objects.
enum class TagType : unsigned char {
    None,  ///< a code that has no meaning
    Text,
    Point,       ///< first coordinate of a point
    Coordinate,  ///< a further one
    Real,
    Int16,
    Int32,
    Int64,
    Bool,
    Binary,
    OwnHandle,  ///< says which object this is
    Handle,     ///< taken as it is: neither turned to a clone nor checked
    SoftPointer,
    HardPointer,
    SoftOwner,
    HardOwner,
};

/// Constant time; None for codes outside 0 to 1071.
TagType tagTypeOf(int code);

inline bool isReferenceCode(int code) { return tagTypeOf(code) >= TagType::SoftPointer; }
/// Codes of owned objects, softly or hard.
inline bool isOwnerCode(int code) { return tagTypeOf(code) >= TagType::SoftOwner; }

}  // namespace host
