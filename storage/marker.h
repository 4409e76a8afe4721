// Group markers: the invisible block references before the first and behind the last member.
//
// A begin marker's attributes hold the end marker's handle text and the member count, an end
// marker's one attribute the begin marker's handle text.
#pragma once

#include <string>

#include "platform.h"

/// What readMarkerText gives.
enum MarkerText { kMarkerTag, kMarkerText };

/// What became of a marker that was to be inserted.
enum Insertion {
    kInserted,         ///< it is the last entity (acdbEntLast) now
    kNoBlock,          ///< the drawing lacks the block: a line is printed, the drawing is as it was
    kInsertionRefused  ///< by the host; the drawing is as it was
};

/// Tag and text of an entity's first attribute; empty when it has none.
struct FirstAttribute {
    std::wstring m_sTag;
    std::wstring m_sText;
};

/// Appends a marker of block `blockName` at `point` to the current space. Its first attribute gets
/// `firstText`, every later one `otherText`.
Insertion insertMarker(const std::wstring& blockName, const AcGePoint3d& point,
                       const std::wstring& firstText, const std::wstring& otherText);

/// Reads the first attribute of a block reference whose block defines attributes; empty for
/// anything else, so also where the drawing lacks the block. False when the host did not let the
/// entity be read: it may be a marker.
bool readFirstAttribute(const AcDbObjectId& entityId, FirstAttribute& first);

/// The tag of the entity's first attribute or, for kMarkerText, that attribute's text when the tag
/// is a marker tag (compared exactly). Empty for anything but a block reference with attributes.
std::wstring readMarkerText(const AcDbObjectId& entityId, MarkerText wanted);

/// Compares tags without regard to case.
bool sameTag(const std::wstring& left, const std::wstring& right);

/// Moves a marker and its attributes to `point` when they stand farther than 0.01 drawing units
/// from it, and rewrites the attribute texts. Call it with markers only.
void updateMarker(const AcDbObjectId& markerId, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText);

/// True when the reference's block holds attribute definitions; false also when the block cannot
/// be opened.
bool blockHasAttributeDefinitions(const AcDbBlockReference& reference);
