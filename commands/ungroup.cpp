// VelmoGROUPDELETE: dissolves whole groups.
#include "command_source.h"
#include "diagnostics.h"
#include "document_data.h"
#include "group_forming.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "host_guards.h"
#include "membership.h"
#include "selection_walk.h"
#include "VeLogging.h"

namespace {

constexpr int kListGrowth = 8;
constexpr const wchar_t* kConversion = L"acdbGetObjectId (objId, ent1) == Acad::eOk";

/// Takes each selected entity out of its group, as it stands: the set has been widened already, or
/// the user wants just these. The number of entities that lost a record.
int ungroupSelected(const ads_name selection) {
    int ungrouped = 0;
    const Adesk::Int32 length = selectionLength(selection);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        if (ungroupEntity(idAt(selection, i, kConversion))) ++ungrouped;
    }
    return ungrouped;
}

/// Dissolves the group of a member. One that does not verify is left whole.
int ungroupWholeGroup(const AcDbObjectId& member) {
    int ungrouped = 0;
    AcDbObjectIdArray group(0, kListGrowth);
    if (!verifyGroup(group, member)) return ungrouped;
    for (int i = 0; i < group.length(); ++i) {
        if (ungroupEntity(group[i])) ++ungrouped;
    }
    return ungrouped;
}

int ungroupWholeGroups(const ads_name selection) {
    int ungrouped = 0;
    const Adesk::Int32 length = selectionLength(selection);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, kConversion);
        if (id.isErased()) continue;
        if (isGroupedEntity(id)) {
            ungrouped += ungroupWholeGroup(id);
        } else if (ungroupEntity(id)) {
            ++ungrouped;
        }
    }
    return ungrouped;
}

}  // namespace

void groupDelete() {
    ads_name selection = {};
    const FreedOnThrow guard(selection);
    int ungrouped = 0;
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, selection) == RTNORM) {
        ungrouped = ungroupSelected(selection);
        docData().m_aGatheredIds.setLogicalLength(0);
        docData().m_bReactToPickfirst = false;
    } else {
        acutPrintf(L"\nPick group(s) to explode: ");
        if (acedSSGet(nullptr, nullptr, nullptr, nullptr, selection) != RTNORM) {
            acutPrintf(L"\nNothing selected");
            return;
        }
        ungrouped = ungroupWholeGroups(selection);
    }
    logCommandUse(L"Ungroup");
    acutPrintf(L"\n%d Entities Ungrouped.", ungrouped);
    acedSSFree(selection);
}
