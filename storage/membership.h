// The membership walk: finds the whole group of an entity by drawing order.
#pragma once

#include <string>

#include "platform.h"

/// Handle text of the entity that follows in drawing order, or an empty text behind the last one.
/// The attributes of a block reference and the vertices of a two-dimensional polyline are stepped
/// over; other old-style polylines are not.
std::wstring nextEntityHandle(const AcDbObjectId& entityId);

/// Finds the group that `start` belongs to: walks to the end marker, jumps to the begin marker that
/// it names, walks on to `start`, and checks the number of members against the begin marker's
/// count. On success `group` holds the begin marker, the members from `start` on to the last, then
/// from the first on to the one before `start`, and the end marker; missing members are announced.
/// Otherwise a line is printed, the result is false and `group` stays as it was.
bool verifyGroup(AcDbObjectIdArray& group, const AcDbObjectId& start);
