// Widens pick-first selections to whole groups.
#include "pick_reactor.h"

#include "boundary.h"
#include "document_data.h"
#include "group_record.h"
#include "grouping_mode.h"
#include "host_guards.h"
#include "membership.h"

namespace {

constexpr int kListGrowth = 8;

/// The host's editor, or null when there is none.
AcEditor* editor() {
    AcRxObject* object = acrxSysRegistry()->at(L"AcEditor");
    if (object == nullptr || !object->isA()->isDerivedFrom(AcEditor::desc())) return nullptr;
    return static_cast<AcEditor*>(object);
}

/// True when the host variable can be read and is 0.
bool variableIsZero(const wchar_t* name) {
    resbuf value{};
    return acedGetVar(name, &value) == RTNORM && value.resval.rint == 0;
}

/// Ids of a selection set in its order; the set is freed.
AcDbObjectIdArray takeIds(const ads_name set) {
    const FreedOnThrow guard(set);
    AcDbObjectIdArray ids(0, kListGrowth);
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) != RTNORM) length = 0;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name = {};
        AcDbObjectId id;
        acedSSName(set, i, name);
        acdbGetObjectId(id, name);
        ids.append(id);
    }
    acedSSFree(set);
    return ids;
}

/// The pick-first set; false when the host has none to give. No buffer counts as an empty set.
bool readPickfirst(AcDbObjectIdArray& ids) {
    ResultBuffers grips;
    ResultBuffers picks;
    if (acedSSGetFirst(grips.receive(), picks.receive()) != RTNORM) return false;
    docData().m_bReactToPickfirst = false;
    ads_name set = {};
    if (picks.get() != nullptr && picks.get()->restype == RTPICKS) {
        ads_name_set(picks.get()->resval.rlname, set);
    }
    ids = takeIds(set);
    return true;
}

/// What of `before` is not in `now`, in the order of `before`.
AcDbObjectIdArray droppedIds(const AcDbObjectIdArray& before, const AcDbObjectIdArray& now) {
    AcDbObjectIdArray dropped(0, kListGrowth);
    for (int i = 0; i < before.length(); ++i) {
        if (!now.contains(before[i])) dropped.append(before[i]);
    }
    return dropped;
}

/// Members of the group of `id`; empty when it is in none that can be walked.
AcDbObjectIdArray groupOf(const AcDbObjectId& id) {
    AcDbObjectIdArray members(0, kListGrowth);
    if (isGroupedEntity(id) && verifyGroup(members, id)) {
        docData().m_bSelectionHasGroups = true;
        return members;
    }
    return AcDbObjectIdArray(0, kListGrowth);
}

/// Widens the picks from position `first` on. It goes by position over the list as it stands at
/// each step and does not look again at what moved, on purpose.
void addGroupsOfPicks(AcDbObjectIdArray& current, int first) {
    const int steps = current.length() - first;
    for (int step = 0; step < steps && first + step < current.length(); ++step) {
        const AcDbObjectId id = current[first + step];
        const AcDbObjectIdArray members = groupOf(id);
        if (members.isEmpty()) continue;
        current.remove(id);  // it comes back below, in the order of its group
        for (int i = 0; i < members.length(); ++i) {
            if (!current.contains(members[i])) current.append(members[i]);
        }
    }
}

void removeGroupsOfDropped(AcDbObjectIdArray& current, const AcDbObjectIdArray& dropped) {
    for (int step = 0; step < dropped.length(); ++step) {
        const AcDbObjectIdArray members = groupOf(dropped[step]);
        for (int i = 0; i < members.length(); ++i) {
            current.remove(members[i]);
        }
    }
}

/// Makes a selection set of the ids; without ids none is made. A failure leaves a partial set.
void makeSet(const AcDbObjectIdArray& ids, ads_name set) {
    for (int i = 0; i < ids.length(); ++i) {
        ads_name name = {};
        acdbGetAdsName(name, ids[i]);
        if (i == 0) {
            if (acedSSAdd(name, nullptr, set) != RTNORM) {
                acdbFail(L"Unable to create selection set \"pickfirst_set\"\n");
            }
        } else if (acedSSAdd(name, set, set) != RTNORM) {
            acdbFail(L"Unable to add entity to selection set \"pickfirst_set\"\n");
        }
    }
}

/// Makes `ids` the pick-first set and remembers them for the next change.
void setPickfirst(const AcDbObjectIdArray& ids) {
    ads_name set = {};
    ads_name unused = {};
    const FreedOnThrow guard(set);
    makeSet(ids, set);
    docData().m_aGatheredIds = ids;
    acedSSSetFirst(set, unused);
    acedSSFree(set);
    acedSSFree(unused);
}

/// Widens the pick-first set, or what is left of it, to whole groups.
void followPickfirst() {
    if (variableIsZero(L"PICKFIRST")) groupingOff();  // grouping needs the pick-first set
    if (!docData().m_bActive) return;
    if (!docData().m_bReactToPickfirst) {
        docData().m_bReactToPickfirst = true;
        return;
    }
    AcDbObjectIdArray current(0, kListGrowth);
    if (!readPickfirst(current)) {
        docData().m_aGatheredIds.setLogicalLength(0);
        return;
    }
    // With PICKADD off a single pick replaces the selection: a fresh start.
    if (variableIsZero(L"PICKADD") && current.length() == 1) {
        docData().m_aGatheredIds.setLogicalLength(0);
    }
    const AcDbObjectIdArray before = docData().m_aGatheredIds;
    if (before.length() == current.length()) {
        docData().m_bReactToPickfirst = true;  // no set will be made, so nothing is to be swallowed
        docData().m_bReportGathering = false;
        return;
    }
    docData().m_bReportGathering = true;
    acutPrintf(L"\nGathering GROUP members: ");
    if (before.length() < current.length()) {
        addGroupsOfPicks(current, before.length());
    } else {
        removeGroupsOfDropped(current, droppedIds(before, current));
    }
    setPickfirst(current);
}

}  // namespace

KESTpickGroupEnt::KESTpickGroupEnt(bool attach) {
    AcEditor* host = attach ? editor() : nullptr;
    if (host == nullptr) return;
    host->addReactor(this);
    m_bAttachedToEditor = true;
}

KESTpickGroupEnt::~KESTpickGroupEnt() {
    AcEditor* host = m_bAttachedToEditor ? editor() : nullptr;
    if (host != nullptr) host->removeReactor(this);
}

void KESTpickGroupEnt::pickfirstModified() { withinBoundary(followPickfirst); }
