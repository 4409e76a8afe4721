// VelmoGROUPDELETE: dissolves whole groups.
#include "command_selection.h"
#include "diagnostics.h"
#include "document_data.h"
#include "group_forming.h"
#include "group_record.h"
#include "group_search.h"
#include "GroupCommands.h"
#include "host_guards.h"
#include "object_ids.h"
#include "selection.h"
#include "VeLogging.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupCommands";

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

/// Dissolves the groups of the selected members; one that does not verify is left whole. Of the
/// other entities markers are erased.
int ungroupWholeGroups(const ads_name selection) {
    int ungrouped = 0;
    GroupSearch search;
    const Adesk::Int32 length = selectionLength(selection, DIAG_HERE);
    for (Adesk::Int32 i = 0; i < length; ++i) {
        const AcDbObjectId id = idAt(selection, i, kSelectedConversion, DIAG_HERE);
        if (id.isErased()) continue;
        AcDbObjectIdArray group(0, kIdListGrowth);
        if (!isGroupedEntity(id)) {
            group.append(id);
        } else if (!search.findWhole(id, group)) {
            continue;
        }
        for (int k = 0; k < group.length(); ++k) {
            if (ungroupEntity(group[k])) {
                ++ungrouped;
            } else if (group[k].isErased()) {
                search.forget(group[k]);
            }
        }
    }
    return ungrouped;
}

}  // namespace

void groupDelete() {
    OwnedSelection selection;
    int ungrouped = 0;
    switch (selectForCommand(L"\nPick group(s) to explode: ", selection)) {
        case kNothingSelected:
            return;
        case kPickfirst:
            ungrouped = ungroupSelected(selection.name());
            docData().m_aGatheredIds.setLogicalLength(0);
            docData().m_bReactToPickfirst = false;
            break;
        case kSelectedAtPrompt:
            ungrouped = ungroupWholeGroups(selection.name());
    }
    logCommandUse(L"Ungroup");
    acutPrintf(L"\n%d Entities Ungrouped.", ungrouped);
    DIAG_CHECK(selection.free() == RTNORM);
}
