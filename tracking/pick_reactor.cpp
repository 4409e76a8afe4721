// Widens pick-first selections to whole groups.
#include "pick_reactor.h"

#include <vector>

#include "boundary.h"
#include "document_data.h"
#include "group_record.h"
#include "group_search.h"
#include "grouping_mode.h"
#include "host_guards.h"
#include "host_services.h"
#include "object_ids.h"

namespace {

AcEditor* editor() { return hostService<AcEditor>(L"AcEditor"); }

/// True when the host variable can be read and is 0.
bool variableIsZero(const wchar_t* name) {
    resbuf value = {};
    return acedGetVar(name, &value) == RTNORM && value.resval.rint == 0;
}

/// Ids of a selection set in its order.
AcDbObjectIdArray idsOf(const ads_name set) {
    AcDbObjectIdArray ids(0, kIdListGrowth);
    Adesk::Int32 length = 0;
    if (acedSSLength(set, &length) != RTNORM) return ids;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name name = {};
        AcDbObjectId id;
        acedSSName(set, i, name);
        acdbGetObjectId(id, name);
        ids.append(id);
    }
    return ids;
}

/// The pick-first set; false when the host has none to give. No buffer counts as an empty set.
bool readPickfirst(AcDbObjectIdArray& ids) {
    ResultBuffers grips;
    ResultBuffers picks;
    if (acedSSGetFirst(grips.receive(), picks.receive()) != RTNORM) return false;
    OwnedSelection set;
    if (picks.get() != nullptr && picks.get()->restype == RTPICKS) {
        ads_name_set(picks.get()->resval.rlname, set.name());
    }
    ids = idsOf(set.name());
    return true;
}

/// What of `ids` is not in `others`, in the order of `ids`.
AcDbObjectIdArray without(const AcDbObjectIdArray& ids, const IdSet& others) {
    AcDbObjectIdArray rest(0, kIdListGrowth);
    for (int i = 0; i < ids.length(); ++i) {
        if (!others.has(ids[i])) rest.append(ids[i]);
    }
    return rest;
}

/// Finds the group of `id`, as GroupSearch gives it; kNone when it is in none that can be walked.
GroupSearch::Answer findGroup(GroupSearch& search, const AcDbObjectId& id,
                              AcDbObjectIdArray& group) {
    const GroupSearch::Answer answer =
        isGroupedEntity(id) ? search.find(id, group) : GroupSearch::kNone;
    if (answer != GroupSearch::kNone) docData().m_bSelectionHasGroups = true;
    return answer;
}

/// The ids without those at the places named, which ascend.
AcDbObjectIdArray withoutPlaces(const AcDbObjectIdArray& ids, const std::vector<int>& places) {
    AcDbObjectIdArray rest(0, kIdListGrowth);
    std::size_t next = 0;
    for (int i = 0; i < ids.length(); ++i) {
        if (next < places.size() && places[next] == i) {
            ++next;
        } else {
            rest.append(ids[i]);
        }
    }
    return rest;
}

/// Widens the picks from position `first` on: each that has a group is taken out and comes back in
/// the order of its group, behind all others, with what of the group is not in the list yet. The
/// walk goes by position and does not look again at what moved, on purpose: what moves up into the
/// place of a pick is passed over, and what was appended may be met.
AcDbObjectIdArray withGroupsOfPicks(AcDbObjectIdArray ids, int first) {
    GroupSearch search;
    IdSet present(ids);
    std::vector<int> takenOut;  // places in `ids`, which is closed up at the end only
    AcDbObjectIdArray group(0, kIdListGrowth);
    const int picks = ids.length() - first;
    for (int pick = 0; pick < picks; ++pick) {
        // Everything taken out stood in front: each moved this position up by one.
        const int place = first + pick + static_cast<int>(takenOut.size());
        const AcDbObjectId id = ids[place];
        const GroupSearch::Answer answer = findGroup(search, id, group);
        if (answer == GroupSearch::kNone) continue;
        takenOut.push_back(place);
        if (answer == GroupSearch::kKnown) {
            ids.append(id);  // all others of its group are in the list
            continue;
        }
        for (int i = 0; i < group.length(); ++i) {
            if (group[i] == id || present.add(group[i])) ids.append(group[i]);
        }
    }
    return withoutPlaces(ids, takenOut);
}

/// What is left of `ids` without the whole groups of what was dropped.
AcDbObjectIdArray withoutGroupsOf(const AcDbObjectIdArray& dropped, const AcDbObjectIdArray& ids) {
    GroupSearch search;
    IdSet leaving;
    AcDbObjectIdArray group(0, kIdListGrowth);
    for (int i = 0; i < dropped.length(); ++i) {
        const GroupSearch::Answer answer = findGroup(search, dropped[i], group);
        if (answer == GroupSearch::kNew) leaving.add(group);
    }
    return without(ids, leaving);
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

/// Widens the pick-first set, or what is left of it, to whole groups.
void followPickfirst() {
    if (variableIsZero(L"PICKFIRST")) groupingOff();  // grouping needs the pick-first set
    if (!docData().m_bActive) return;
    if (!docData().m_bReactToPickfirst) {
        docData().m_bReactToPickfirst = true;
        return;
    }
    AcDbObjectIdArray current(0, kIdListGrowth);
    if (!readPickfirst(current)) {
        docData().m_aGatheredIds.setLogicalLength(0);
        return;
    }
    // With PICKADD off a single pick replaces the selection: a fresh start.
    if (variableIsZero(L"PICKADD") && current.length() == 1) {
        docData().m_aGatheredIds.setLogicalLength(0);
    }
    const AcDbObjectIdArray before = docData().m_aGatheredIds;
    docData().m_bReportGathering = before.length() != current.length();
    if (!docData().m_bReportGathering) return;
    acutPrintf(L"\nGathering GROUP members: ");
    current = before.length() < current.length()
                  ? withGroupsOfPicks(current, before.length())
                  : withoutGroupsOf(without(before, IdSet(current)), current);
    OwnedSelection set;
    makeSet(current, set.name());
    docData().m_aGatheredIds = current;
    docData().m_bReactToPickfirst = false;  // the change that comes of this is not to be followed
    ads_name unused = {};
    acedSSSetFirst(set.name(), unused);
}

}  // namespace

KESTpickGroupEnt::KESTpickGroupEnt(bool attach) : m_bAttachedToEditor(false) {
    AcEditor* host = attach ? editor() : nullptr;
    if (host == nullptr) return;
    host->addReactor(this);
    m_bAttachedToEditor = true;
}

KESTpickGroupEnt::~KESTpickGroupEnt() {
    const bool attached = m_bAttachedToEditor;
    withinBoundary([this, attached] {
        AcEditor* host = attached ? editor() : nullptr;
        if (host != nullptr) host->removeReactor(this);
    });
}

void KESTpickGroupEnt::pickfirstModified() { withinBoundary(followPickfirst); }
