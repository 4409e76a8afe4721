// Selection sets: the table of open ones and the calls that work on them.
//
// A name is the set's place (from 1) and a generation that is never used twice, so a name that was
// freed, or an entity's name, is always recognised.
#include "host/editor/selection/selection_sets.h"

#include <algorithm>
#include <memory>

#include "host/control/accounting.h"
#include "host/control/faults.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/selection_sets.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"

namespace host {

void SelectionSet::fillWords() const {
    if (m_wordsFilled) return;
    m_words.reserve(m_ids.size());
    for (const AcDbObjectId& id : m_ids)
        m_words.insert(id.asWord());
    m_wordsFilled = true;
}

bool SelectionSet::add(AcDbObjectId id) {
    fillWords();
    if (!m_words.insert(id.asWord()).second) return false;
    m_ids.push_back(id);
    return true;
}

bool SelectionSet::remove(AcDbObjectId id) {
    fillWords();
    if (m_words.erase(id.asWord()) == 0) return false;
    m_ids.erase(std::find(m_ids.begin(), m_ids.end(), id));
    return true;
}

namespace {

struct OpenSet {
    std::unique_ptr<SelectionSet> set;  ///< null: the place is free
    Adesk::IntPtr generation = 0;
    std::uint32_t drawing = 0;  ///< serial of the store it was made in
};

OpenSet places[kMostSelectionSets];
Adesk::IntPtr lastGeneration = 0;

/// The place that a name points to while its set is open, in whatever drawing; else null.
OpenSet* placeOf(const ads_name name) {
    if (name == nullptr || name[0] < 0 || name[0] >= static_cast<Adesk::IntPtr>(kMostSelectionSets))
        return nullptr;
    OpenSet& place = places[name[0]];
    return place.set != nullptr && place.generation == name[1] ? &place : nullptr;
}

OpenSet* freePlace() {
    for (OpenSet& place : places) {
        if (place.set == nullptr) return &place;
    }
    return nullptr;
}

void listHeldSets(std::vector<std::string>& lines) {
    for (const OpenSet& place : places) {
        if (place.set == nullptr) continue;
        lines.push_back("selection set " + std::to_string(place.generation) + " of " +
                        std::to_string(place.set->ids().size()) + " entities");
    }
}

}  // namespace

bool canOpenSet() {
    if (freePlace() != nullptr) return true;
    setErrno(kErrnoTooManySets);
    return false;
}

void openSet(SelectionSet set, ads_name name) {
    addHeldLister(&listHeldSets);
    OpenSet* place = freePlace();
    place->set = std::make_unique<SelectionSet>(std::move(set));
    place->generation = ++lastGeneration;
    place->drawing = currentStore()->serial();
    countHeld(Held::SelectionSet);
    name[0] = place - places;  // of the first set 0: only both words together are a name
    name[1] = place->generation;
}

SelectionSet* openSetOf(const ads_name name, const char* call) {
    OpenSet* place = placeOf(name);
    const Store* store = currentStore();
    if (place != nullptr && store != nullptr && place->drawing == store->serial())
        return place->set.get();
    if (place != nullptr)
        reportModuleFault(std::string(call) + ": the selection set was made in another drawing");
    setErrno(kErrnoInvalidSet);
    return nullptr;
}

void resetSelectionSets() {
    for (OpenSet& place : places) {
        if (place.set == nullptr) continue;
        reportModuleFault("at the end: selection set of " +
                          std::to_string(place.set->ids().size()) + " entities was not freed");
        place.set.reset();
        countReturned(Held::SelectionSet);
    }
}

namespace {

/// The entity to add or remove; sets ERRNO when the name is bad.
ObjectBody* memberOf(const ads_name entity, const char* call) {
    ObjectBody* body = entityOf(entity, call);
    if (body == nullptr) setErrno(kErrnoInvalidName);
    return body;
}

}  // namespace
}  // namespace host

using namespace host;

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
    if (callFails("acedSSAdd")) return RTERROR;
    if (currentStore() == nullptr || result == nullptr) return RTERROR;
    SelectionSet* present = nullptr;
    if (set != nullptr && (present = openSetOf(set, "acedSSAdd")) == nullptr) return RTERROR;
    ObjectBody* body = nullptr;
    if (entity != nullptr && (body = memberOf(entity, "acedSSAdd")) == nullptr) return RTERROR;
    if (present != nullptr) {
        if (body != nullptr) present->add(body->store->idOf(*body));
        ads_name_set(set, result);
        return RTNORM;
    }
    if (!canOpenSet()) return RTERROR;
    SelectionSet fresh;
    if (body != nullptr) fresh.add(body->store->idOf(*body));
    openSet(std::move(fresh), result);
    return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name set) {
    if (callFails("acedSSDel")) return RTERROR;
    SelectionSet* open = openSetOf(set, "acedSSDel");
    if (open == nullptr || entity == nullptr || entity[1] != 0) return RTERROR;
    const AcDbObjectId id = idOfName(entity);
    return open->remove(id) ? RTNORM : RTERROR;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
    if (callFails("acedSSLength")) return RTERROR;
    const SelectionSet* open = openSetOf(set, "acedSSLength");
    if (open == nullptr || length == nullptr) return RTERROR;
    *length = static_cast<Adesk::Int32>(open->ids().size());
    return RTNORM;
}

int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity) {
    if (callFails("acedSSName")) return RTERROR;
    const SelectionSet* open = openSetOf(set, "acedSSName");
    if (open == nullptr || entity == nullptr || index < 0) return RTERROR;
    if (static_cast<std::size_t>(index) >= open->ids().size()) return RTERROR;
    nameOfId(open->ids()[static_cast<std::size_t>(index)], entity);
    return RTNORM;
}

// Freeing works from any drawing: a document that closes must not turn its sets into leaks.
int acedSSFree(const ads_name set) {
    if (callFails("acedSSFree")) return RTERROR;
    OpenSet* place = placeOf(set);
    if (place == nullptr) {
        setErrno(kErrnoInvalidSet);
        return RTERROR;
    }
    place->set.reset();
    countReturned(Held::SelectionSet);
    return RTNORM;
}
