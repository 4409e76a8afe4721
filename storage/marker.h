// Group markers: the invisible block references before the first and behind the last member.
//
// A begin marker's attributes hold the end marker's handle text and the member count, an end
// marker's one attribute the begin marker's handle text.
#pragma once

#include <string>

#include "platform.h"

/// What readMarkerText gives.
enum class MarkerText { kTag, kText };

/// What became of a marker that was to be inserted.
enum class Insertion {
    kDone,     ///< it is the last entity (acdbEntLast) now
    kNoBlock,  ///< the drawing lacks the block: a line is printed, the drawing is as it was
    kRefused   ///< by the host; the drawing is as it was
};

/// Appends a marker of block `blockName` at `point` to the current space. Its first attribute gets
/// `firstText`, every later one `otherText`.
Insertion insertMarker(const std::wstring& blockName, const AcGePoint3d& point,
                       const std::wstring& firstText, const std::wstring& otherText);

/// The tag of the entity's first attribute or, for kText, that attribute's text when the tag is a
/// marker tag (compared exactly). Empty for anything but a block reference with attributes.
std::wstring readMarkerText(const AcDbObjectId& entityId, MarkerText wanted);

/// The same for the tag. False when the host did not let the entity be read: it may be a marker.
bool readMarkerTag(const AcDbObjectId& entityId, std::wstring& tag);

/// Compares tags without regard to case.
bool sameTag(const std::wstring& left, const std::wstring& right);

/// Moves a marker and its attributes to `point` when they stand farther than 0.01 drawing units
/// from it, and rewrites the attribute texts. Call it with markers only.
void updateMarker(const AcDbObjectId& markerId, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText);

/// True when the reference's block holds attribute definitions; false also when the block cannot
/// be opened.
bool blockHasAttributeDefinitions(const AcDbBlockReference& reference);
