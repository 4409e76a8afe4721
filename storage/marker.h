// Group markers: the invisible block references before the first and behind the last member.
//
// A begin marker's attributes hold the end marker's handle text and the member count, an end
// marker's one attribute the begin marker's handle text.
#pragma once

#include <string>

#include "platform.h"

/// What readMarkerText gives.
enum class MarkerText { kTag, kText };

/// Appends a marker of block `blockName` at `point` to the current space, where it is then the last
/// entity (acdbEntLast). Its first attribute gets `firstText`, every later one `otherText`. Prints
/// a line and inserts nothing when the drawing lacks the block.
void insertMarker(const std::wstring& blockName, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText);

/// The tag of the entity's first attribute or, for kText, that attribute's text when the tag is a
/// marker tag (compared exactly). Empty for anything but a block reference with attributes.
std::wstring readMarkerText(const AcDbObjectId& entityId, MarkerText wanted);

/// Moves a marker and its attributes to `point` when they stand farther than 0.01 drawing units
/// from it, and rewrites the attribute texts. Call it with markers only.
void updateMarker(const AcDbObjectId& markerId, const AcGePoint3d& point,
                  const std::wstring& firstText, const std::wstring& otherText);

/// True when the reference's block holds attribute definitions; false also when the block cannot
/// be opened.
bool blockHasAttributeDefinitions(const AcDbBlockReference& reference);
