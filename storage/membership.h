// Which entities form the group of an entity.
#pragma once

#include "platform.h"

/// Finds the group that `start` belongs to: walks to the end marker, jumps to the begin marker that
/// it names, walks on to `start`, and checks the number of members against the begin marker's
/// count. On success `group` holds the begin marker, the members from `start` on to the last, then
/// from the first on to the one before `start`, and the end marker; missing members are announced.
/// Otherwise a line is printed, the result is false and `group` stays as it was.
bool verifyGroup(AcDbObjectIdArray& group, const AcDbObjectId& start);

/// Judges a walk that has met an end marker (`beginFound`) and came over `members` entities: says
/// what is missing of the `count` that the begin marker holds, or that there is no group.
bool announceVerdict(bool beginFound, int members, int count);
