// Forming groups by re-cloning, and taking entities out of them.
#pragma once

#include "platform.h"

/// Binds the selection into one group at the end of the current space: begin marker, clones of the
/// entities with group records, end marker, both markers at `point`. Markers in the selection are
/// taken out of it and erased. The marker blocks must exist. True: the set is freed. False when the
/// host refuses a step before the clones stand, which prints a line: then nothing has changed, and
/// the set, in another order, is still the caller's.
bool formGroup(const ads_name selection, const AcGePoint3d& point);

/// What happens to the group records of re-cloned entities.
enum Records { kGiveRecords, kTakeRecordsAway };

/// Replaces the entities of the selection by clones at the end of the current space. Only those
/// with the owner of the first one are cloned; all are erased. The set stays the caller's. False,
/// with the entities and their records as they were, when one cannot be read or the cloning fails:
/// a drawing must not lose what could not be cloned.
bool recloneIntoCurrentSpace(const ads_name selection, Records records);

/// Takes the group record away and answers true; a group marker is erased, with the answer false,
/// as for anything else.
bool ungroupEntity(const AcDbObjectId& entityId);

/// Erases an object; failures are silent.
void eraseObject(const AcDbObjectId& objectId);
