// VelmoGROUPREMOVEMEMBER: takes single entities out of their groups.
#include <string>

#include "command_source.h"
#include "diagnostics.h"
#include "group_forming.h"
#include "group_markers.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "handle_text.h"
#include "host_guards.h"
#include "marker.h"
#include "membership.h"
#include "VeLogging.h"

namespace {

constexpr int kListGrowth = 8;

/// Lowers the count of the group, or erases the markers of one that becomes empty. The number of
/// members that stay.
int shrinkGroup(const AcDbObjectIdArray& group) {
    const AcDbObjectId begin = group.first();
    const AcDbObjectId end = group.last();
    const int left = _wtoi(readMarkerCount(begin).c_str()) - 1;
    const AcGePoint3d position = markerPosition(begin);
    if (left >= 1) {
        updateMarker(begin, position, handleText(end), std::to_wstring(left));
    } else {
        eraseObject(begin);
        eraseObject(end);
    }
    return left;
}

/// Moves the entity behind everything in the drawing, without its group record.
void recloneAlone(const ads_name entity) {
    ads_name selection = {};
    const FreedOnThrow guard(selection);
    const bool made = DIAG_CHECK(acedSSAdd(entity, nullptr, selection) == RTNORM);
    if (!made) return;
    recloneIntoCurrentSpace(selection, Records::kTakeAway);
    acedSSFree(selection);
}

void removeMember(const ads_name entity, const AcDbObjectId& id) {
    logCommandUse(L"Remove Member");
    AcDbObjectIdArray group(0, kListGrowth);
    const int left = verifyGroup(group, id) ? shrinkGroup(group) : 0;
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
