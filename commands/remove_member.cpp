// VelmoGROUPREMOVEMEMBER: takes single entities out of their groups.
#include <string>

#include "decimal_text.h"
#include "diagnostics.h"
#include "group_forming.h"
#include "group_markers.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"
#include "membership.h"
#include "number_text.h"
#include "object_ids.h"
#include "VeLogging.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupCommands";

/// Writes the count of a group that lost a member, or erases the markers of one that became empty.
void shrinkGroup(const AcDbObjectIdArray& group, int left) {
    const AcDbObjectId begin = group.first();
    const AcDbObjectId end = group.last();
    AcGePoint3d position;
    readPosition(begin, position);
    if (left >= 1) {
        updateMarker(begin, position, handleText(end), decimalText(left));
    } else {
        eraseObject(begin);
        eraseObject(end);
    }
}

/// Moves the entity behind everything in the drawing, without its group record.
void recloneAlone(const ads_name entity) {
    OwnedSelection selection;
    if (!DIAG_CHECK(acedSSAdd(entity, nullptr, selection.name()) == RTNORM)) return;
    recloneIntoCurrentSpace(selection.name(), kTakeRecordsAway);
    DIAG_CHECK(selection.free() == RTNORM);
}

void removeMember(const ads_name entity, const AcDbObjectId& id) {
    logCommandUse(L"Remove Member");
    AcDbObjectIdArray group(0, kIdListGrowth);
    const bool verified = verifyGroup(group, id);
    const int left = verified ? digitsOf(readMarkerCount(group.first())) - 1 : 0;
    if (verified) shrinkGroup(group, left);
    recloneAlone(entity);
    if (left >= 1) {
        acutPrintf(L"\nEntity Removed, %d still in the Group.", left);
    } else {
        acutPrintf(L"\nEntity cleaned.");
    }
}

}  // namespace

void groupRemoveMember() {
    for (;;) {
        ads_name entity = {};
        ads_point picked = {};
        if (acedEntSel(L"\nSelect member of VelmoGroup: ", entity, picked) != RTNORM) break;
        AcDbObjectId id;
        DIAG_ASSERT(acdbGetObjectId(id, entity) == Acad::eOk,
                    L"acdbGetObjectId (objId, ent) == Acad::eOk");
        if (isGroupedEntity(id)) {
            removeMember(entity, id);
        } else {
            acutPrintf(L"\nNo valid Group member selected.");
        }
    }
    acutPrintf(L"\nNothing selected");  // also the way out after the last wanted removal
}
