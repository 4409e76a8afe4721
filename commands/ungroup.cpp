// VelmoGROUPDELETE: dissolves whole groups.
#include "command_selection.h"
#include "command_source.h"
#include "document_data.h"
#include "group_forming.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "host_guards.h"
#include "membership.h"
#include "object_ids.h"
#include "selection.h"
#include "VeLogging.h"

namespace {

constexpr CheckSource DIAG_SOURCE = kUngroup;

/// Takes each selected entity out of its group, as it stands: the set has been widened already, or
/// the user wants just these. The number of entities that lost a record.
int ungroupSelected(const ads_name selection) {
    int ungrouped = 0;
    const Adesk::Int32 length = selectionLength(selection, DIAG_HERE);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        if (ungroupEntity(idAt(selection, i, kSelectedConversion, DIAG_HERE))) ++ungrouped;
    }
    return ungrouped;
}

/// Dissolves the group of a member. One that does not verify is left whole.
int ungroupWholeGroup(const AcDbObjectId& member) {
    int ungrouped = 0;
    AcDbObjectIdArray group(0, kIdListGrowth);
    if (!verifyGroup(group, member)) return ungrouped;
    for (int i = 0; i < group.length(); ++i) {
        if (ungroupEntity(group[i])) ++ungrouped;
    }
    return ungrouped;
}

int ungroupWholeGroups(const ads_name selection) {
    int ungrouped = 0;
    const Adesk::Int32 length = selectionLength(selection, DIAG_HERE);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, kSelectedConversion, DIAG_HERE);
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
    OwnedSelection selection;
    int ungrouped = 0;
    switch (selectForCommand(L"\nPick group(s) to explode: ", selection)) {
        case Selected::kNothing:
            return;
        case Selected::kPickfirst:
            ungrouped = ungroupSelected(selection.name());
            docData().m_aGatheredIds.setLogicalLength(0);
            docData().m_bReactToPickfirst = false;
            break;
        case Selected::kAtPrompt:
            ungrouped = ungroupWholeGroups(selection.name());
    }
    logCommandUse(L"Ungroup");
    acutPrintf(L"\n%d Entities Ungrouped.", ungrouped);
    DIAG_CHECK(selection.free() == RTNORM);
}
