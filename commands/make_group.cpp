// VelmoGROUPMAKE: binds entities into one group.
#include "command_selection.h"
#include "diagnostics.h"
#include "document_data.h"
#include "group_forming.h"
#include "group_record.h"
#include "group_search.h"
#include "GroupCommands.h"
#include "host_guards.h"
#include "marker_block.h"
#include "object_ids.h"
#include "selection.h"
#include "VeLogging.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupCommands";
const int kPointCode = 10;
const int kRefuseEmptyInput = 1;

enum Highlight { kHighlightOn = 3, kHighlightOff = 4 };

/// Shows the first `length` entities of the set in that way.
void highlight(const ads_name selection, Adesk::Int32 length, Highlight mode) {
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name entity = {};
        if (!nameAt(selection, i, entity, DIAG_HERE)) continue;
        DIAG_CHECK(acedRedraw(entity, mode) == RTNORM);
    }
}

void takeHighlightBack(const ads_name selection) {
    highlight(selection, selectionLength(selection, DIAG_HERE), kHighlightOff);
}

/// Adds every id of `group` to the set; those that are in it already stay where they are.
void addAll(ads_name selection, const AcDbObjectIdArray& group) {
    for (int i = 0; i < group.length(); ++i) {
        ads_name entity = {};
        if (!DIAG_ASSERT(acdbGetAdsName(entity, group[i]) == Acad::eOk,
                         L"acdbGetAdsName(ent1, objId) == Acad::eOk")) {
            continue;
        }
        DIAG_CHECK(acedSSAdd(entity, selection, selection) == RTNORM);
    }
}

/// Adds the whole group of every grouped entity. Entities that this adds are not visited.
void widenToGroups(ads_name selection) {
    GroupSearch search;
    AcDbObjectIdArray group(0, kIdListGrowth);
    const Adesk::Int32 length = selectionLength(selection, DIAG_HERE);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, kSelectedConversion, DIAG_HERE);
        // What earlier answers gave is in the set already.
        if (isGroupedEntity(id) && search.find(id, group) == GroupSearch::kNew)
            addAll(selection, group);
    }
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
    const Adesk::Int32 length = selectionLength(selection, DIAG_HERE);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name entity = {};
        if (nameAt(selection, i, entity, DIAG_HERE) && definitionPoint(entity, point)) return true;
    }
    DIAG_CHECK(acedInitGet(kRefuseEmptyInput, nullptr) == RTNORM);
    return acedGetPoint(nullptr, L"\nPick insertion point for group markers: ",
                        asDblArray(point)) == RTNORM;
}

/// What the command does once the set is freed.
void finish(ads_name freed) {
    // The members are clones, which were never highlighted: this finds nothing to do, and neither
    // does the second release. Both are to fail in silence.
    Adesk::Int32 length = 0;
    if (acedSSLength(freed, &length) == RTNORM) highlight(freed, length, kHighlightOff);
    logCommandUse(L"Make or Add Group");
    docData().m_aGatheredIds.setLogicalLength(0);
    acedSSFree(freed);
    ads_name_clear(freed);
    ads_name unused = {};
    DIAG_CHECK(acedSSSetFirst(freed, unused) == RTNORM);
}

}  // namespace

void groupMake() {
    OwnedSelection selection;
    switch (selectForCommand(L"\nSelect entities to form an VelmoGroup: ", selection)) {
        case kNothingSelected:
            return;
        case kPickfirst:
            break;
        case kSelectedAtPrompt:
            widenToGroups(selection.name());
            highlight(selection.name(), selectionLength(selection.name(), DIAG_HERE), kHighlightOn);
    }
    ensureMarkerBlocks();
    AcGePoint3d point;
    if (!markerPoint(selection.name(), point)) {
        takeHighlightBack(selection.name());
        selection.release();  // a cancelled command keeps its set, on purpose
        return;
    }
    if (!formGroup(selection.name(), point)) {
        takeHighlightBack(selection.name());
        DIAG_CHECK(acedSSFree(selection.name()) == RTNORM);
    }
    finish(selection.name());
}
