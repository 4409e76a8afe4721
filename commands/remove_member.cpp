// VelmoGROUPREMOVEMEMBER: takes single entities out of their groups.
#include <string>

#include "command_source.h"
#include "group_forming.h"
#include "group_markers.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"
#include "membership.h"
#include "object_ids.h"
#include "VeLogging.h"

namespace {

constexpr CheckSource DIAG_SOURCE = kRemoveMember;

/// Writes the count of a group that lost a member, or erases the markers of one that became empty.
void shrinkGroup(const AcDbObjectIdArray& group, int left) {
    const AcDbObjectId begin = group.first();
    const AcDbObjectId end = group.last();
    AcGePoint3d position;
    readPosition(begin, position);
    if (left >= 1) {
        updateMarker(begin, position, handleText(end), std::to_wstring(left));
    } else {
        eraseObject(begin);
        eraseObject(end);
    }
}

/// Moves the entity behind everything in the drawing, without its group record.
void recloneAlone(const ads_name entity) {
    OwnedSelection selection;
    if (!DIAG_CHECK(acedSSAdd(entity, nullptr, selection.name()) == RTNORM)) return;
    recloneIntoCurrentSpace(selection.name(), Records::kTakeAway);
    DIAG_CHECK(selection.free() == RTNORM);
}

void removeMember(const ads_name entity, const AcDbObjectId& id) {
    logCommandUse(L"Remove Member");
    AcDbObjectIdArray group(0, kIdListGrowth);
    const bool verified = verifyGroup(group, id);
    const int left = verified ? _wtoi(readMarkerCount(group.first()).c_str()) - 1 : 0;
    recloneAlone(entity);
    // What the host did not let go still stands between the markers: it goes on counting as a
    // member, or repair would find one too many and dissolve the group.
    if (!id.isErased()) return;
    if (verified) shrinkGroup(group, left);
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
