// What the commands read from markers and write to pairs of them.
#pragma once

#include <string>

#include "platform.h"

/// A marker as the passes over groups remember it.
struct Marker {
    AcDbObjectId id;
    std::wstring handle;
    std::wstring count;    ///< begin markers only
    AcGePoint3d position;  ///< (0, 0, 0) until read
};

/// The member count text of a begin marker: its second attribute, when that carries the begin
/// marker's tag. Empty for everything else.
std::wstring readMarkerCount(const AcDbObjectId& markerId);

/// Insertion point of a marker. Anything but a block reference is announced and counts as standing
/// at (0, 0, 0).
AcGePoint3d markerPosition(const AcDbObjectId& markerId);

/// Makes the two markers of a group name each other, with the same count text.
void linkMarkers(const Marker& begin, const Marker& end, const std::wstring& count);

/// Compares tags without regard to case.
bool sameTag(const std::wstring& left, const std::wstring& right);
