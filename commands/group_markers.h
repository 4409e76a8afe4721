// What the commands read from markers and write to pairs of them.
#pragma once

#include <string>

#include "platform.h"

/// A marker as the passes over groups remember it.
struct Marker {
    AcDbObjectId m_id;
    std::wstring m_sHandle;
    std::wstring m_sCount;   ///< begin markers only
    AcGePoint3d m_position;  ///< (0, 0, 0) until read
};

/// The member count text of a begin marker: its second attribute, when that carries the begin
/// marker's tag. Empty for everything else.
std::wstring readMarkerCount(const AcDbObjectId& markerId);

/// Insertion point of a marker. Anything but a block reference is announced and leaves `position`
/// as it was.
void readPosition(const AcDbObjectId& markerId, AcGePoint3d& position);

/// Everything that the passes keep of a begin marker.
void readBeginMarker(const AcDbObjectId& markerId, Marker& begin);

/// Makes the two markers of a group name each other, with the same count text.
void linkMarkers(const Marker& begin, const Marker& end, const std::wstring& count);
