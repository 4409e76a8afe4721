// VelmoGROUPMAKE: binds entities into one group.
#include "GroupCommands.h"

#include "command_source.h"
#include "diagnostics.h"
#include "document_data.h"
#include "group_forming.h"
#include "group_record.h"
#include "host_guards.h"
#include "marker_block.h"
#include "membership.h"
#include "platform.h"
#include "selection_walk.h"
#include "VeLogging.h"

namespace {

constexpr int kListGrowth = 8;
constexpr int kPointCode = 10;
constexpr int kRefuseEmptyInput = 1;

enum class Highlight { kOn = 3, kOff = 4 };

void highlight(const ads_name selection, Highlight mode) {
    const Adesk::Int32 length = selectionLength(selection);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name entity = {};
        if (nameAt(selection, i, entity)) acedRedraw(entity, static_cast<int>(mode));
    }
}

/// Adds every id of `group` to the set; those that are in it already stay where they are.
void addAll(ads_name selection, const AcDbObjectIdArray& group) {
    for (int i = 0; i < group.length(); ++i) {
        ads_name entity = {};
        const bool named = DIAG_ASSERT(acdbGetAdsName(entity, group[i]) == Acad::eOk,
                                       L"acdbGetAdsName(ent1, objId) == Acad::eOk");
        if (!named) continue;
        DIAG_CHECK(acedSSAdd(entity, selection, selection) == RTNORM);
    }
}

/// Adds the whole group of every grouped entity. Entities that this adds are not visited.
void widenToGroups(ads_name selection) {
    const Adesk::Int32 length = selectionLength(selection);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, L"acdbGetObjectId (objId, ent1) == Acad::eOk");
        if (!isGroupedEntity(id)) continue;
        AcDbObjectIdArray group(0, kListGrowth);
        if (verifyGroup(group, id) && !group.isEmpty()) addAll(selection, group);
    }
}

/// The pick-first set or, with the whole groups of its members, what the user selects now.
bool selectForGroup(ads_name selection) {
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, selection) == RTNORM) return true;
    acutPrintf(L"\nSelect entities to form an VelmoGroup: ");
    if (acedSSGet(nullptr, nullptr, nullptr, nullptr, selection) != RTNORM) {
        acutPrintf(L"\nNothing selected");
        return false;
    }
    widenToGroups(selection);
    highlight(selection, Highlight::kOn);
    return true;
}

/// The first point in an entity's definition data; false when it has none.
bool definitionPoint(const ads_name entity, AcGePoint3d& point) {
    const ResultBuffers data(acdbEntGet(entity));
    for (const resbuf* item = data.get(); item != nullptr; item = item->rbnext) {
        if (item->restype != kPointCode) continue;
        point = asPnt3d(item->resval.rpoint);
        return true;
    }
    return false;
}

/// Where the markers go: at the first located entity. Only a set without any point asks the user;
/// false when that prompt was cancelled.
bool markerPoint(const ads_name selection, AcGePoint3d& point) {
    const Adesk::Int32 length = selectionLength(selection);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name entity = {};
        if (nameAt(selection, i, entity) && definitionPoint(entity, point)) return true;
    }
    acedInitGet(kRefuseEmptyInput, nullptr);
    return acedGetPoint(nullptr, L"\nPick insertion point for group markers: ",
                        asDblArray(point)) == RTNORM;
}

void clearPickfirst(ads_name selection) {
    ads_name unused = {};
    ads_name_clear(selection);
    acedSSSetFirst(selection, unused);
}

}  // namespace

void groupMake() {
    ads_name selection = {};
    const FreedOnThrow guard(selection);
    if (!selectForGroup(selection)) return;
    ensureMarkerBlocks();
    AcGePoint3d point;
    if (!markerPoint(selection, point)) {
        highlight(selection, Highlight::kOff);
        return;
    }
    formGroup(selection, point);
    // The set is freed by now: neither this pass nor the second release finds anything to do.
    highlight(selection, Highlight::kOff);
    logCommandUse(L"Make or Add Group");
    docData().m_aGatheredIds.setLogicalLength(0);
    acedSSFree(selection);
    clearPickfirst(selection);
}
