// The pick-first set: gestures, notifications, and the calls that read and set it.
#include "host/editor/selection/pickfirst.h"

#include <algorithm>
#include <unordered_set>

#include "host/control/faults.h"
#include "host/control/switches.h"
#include "host/editor/selection/selection_sets.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/notify.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/command_stack.h"
#include "host/objectarx/selection_sets.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"

namespace host {
namespace {

const std::vector<AcDbObjectId> kNothing;

/// Notifies now, or leaves it to the next idle moment.
void changed(DocumentState& state) {
    if (switches().pickfirstNotifiedInside)
        notifyPickfirstModified();
    else
        state.notificationDue = true;
}

/// After a gesture the host is idle, so what waited is delivered as well.
void gestureDone(bool notify) {
    if (notify) notifyPickfirstModified();
    idle();
}

using Words = std::unordered_set<Adesk::UInt64>;

Words wordsOf(const std::vector<AcDbObjectId>& ids) {
    Words words;
    for (const AcDbObjectId& id : ids)
        words.insert(id.asWord());
    return words;
}

bool pickable(AcDbObjectId id) {
    const ObjectBody* body = Store::resolve(id);
    return body != nullptr && body->store == currentStore() && !body->erased && isMainEntity(*body);
}

/// Appends what can be picked and is not in `present` yet.
void appendNew(std::vector<AcDbObjectId>& set, Words& present,
               const std::vector<AcDbObjectId>& ids) {
    for (const AcDbObjectId& id : ids) {
        if (pickable(id) && present.insert(id.asWord()).second) set.push_back(id);
    }
}

void removeAll(std::vector<AcDbObjectId>& set, const Words& words) {
    set.erase(std::remove_if(set.begin(), set.end(),
                             [&](AcDbObjectId id) { return words.count(id.asWord()) != 0; }),
              set.end());
}

/// Puts the outcome of a gesture in place.
void finishGesture(DocumentState& state, std::vector<AcDbObjectId> set) {
    const bool differs = set != state.pickfirst;
    state.pickfirst = std::move(set);
    gestureDone(differs);
}

}  // namespace

const std::vector<AcDbObjectId>& pickfirst() {
    const DocumentState* state = currentDocumentState();
    return state == nullptr ? kNothing : state->pickfirst;
}

void setPickfirst(std::vector<AcDbObjectId> ids) {
    DocumentState* state = currentDocumentState();
    if (state == nullptr) return;
    state->pickfirst = std::move(ids);
    changed(*state);
}

void pick(const std::vector<AcDbObjectId>& ids) {
    DocumentState* state = currentDocumentState();
    if (state == nullptr || ids.empty()) return;
    if (sysvarInteger(L"PICKFIRST") == 0) return gestureDone(true);
    std::vector<AcDbObjectId> set;
    if (sysvarInteger(L"PICKADD") != 0) set = state->pickfirst;
    Words present = wordsOf(set);
    appendNew(set, present, ids);
    finishGesture(*state, std::move(set));
}

void unpick(const std::vector<AcDbObjectId>& ids) {
    DocumentState* state = currentDocumentState();
    if (state == nullptr || ids.empty()) return;
    if (sysvarInteger(L"PICKFIRST") == 0) return gestureDone(true);
    std::vector<AcDbObjectId> set = state->pickfirst;
    Words present = wordsOf(set);
    removeAll(set, wordsOf(ids));
    if (sysvarInteger(L"PICKADD") == 0) appendNew(set, present, ids);
    finishGesture(*state, std::move(set));
}

void pickNothing() {
    DocumentState* state = currentDocumentState();
    if (state == nullptr) return;
    finishGesture(*state, {});
}

void dropErasedFromPickfirst() {
    DocumentState* state = currentDocumentState();
    if (state == nullptr) return;
    std::vector<AcDbObjectId>& set = state->pickfirst;
    const auto kept = std::remove_if(set.begin(), set.end(),
                                     [](const AcDbObjectId& id) { return id.isErased(); });
    if (kept == set.end()) return;
    set.erase(kept, set.end());
    changed(*state);
}

void notifyUnchangedPickfirst() {
    if (DocumentState* state = currentDocumentState()) changed(*state);
}

void dropPickfirst() {
    DocumentState* state = currentDocumentState();
    if (state == nullptr || state->pickfirst.empty()) return;
    state->pickfirst.clear();
    if (switches().dropNotifiesPickfirst) changed(*state);
}

bool pickfirstSettable() {
    return !commandActive() ||
           (activeCommandFlags() & (ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW)) != 0;
}

std::vector<AcDbObjectId> takePickfirst() {
    if (sysvarInteger(L"PICKFIRST") == 0) return {};
    std::vector<AcDbObjectId> taken = pickfirst();
    const bool readOnce = commandActive() && (activeCommandFlags() & ACRX_CMD_REDRAW) == 0;
    if (readOnce) dropPickfirst();
    return taken;
}

}  // namespace host

using namespace host;

int acedSSGetFirst(resbuf** grips, resbuf** picks) {
    if (callFails("acedSSGetFirst")) return RTERROR;
    if (currentStore() == nullptr || grips == nullptr || picks == nullptr) return RTERROR;
    if (!canOpenSet()) return RTERROR;
    std::vector<AcDbObjectId> taken = takePickfirst();
    *grips = nullptr;
    *picks = nullptr;
    if (taken.empty()) return switches().emptyPickfirstIsNorm ? RTNORM : RTERROR;
    if (!canOpenSet()) return RTERROR;  // a handler of the notification may have taken the last one
    ads_name name;
    openSet(SelectionSet(std::move(taken)), name);
    ResultList buffer;
    buffer.addName(RTPICKS, AcDbObjectId());
    *picks = buffer.release();
    (*picks)->resval.rlname[0] = name[0];
    (*picks)->resval.rlname[1] = name[1];
    return RTNORM;
}

int acedSSSetFirst(const ads_name set, const ads_name) {
    if (callFails("acedSSSetFirst")) return RTERROR;
    if (currentStore() == nullptr || !pickfirstSettable()) return RTERROR;
    std::vector<AcDbObjectId> ids;
    if (set != nullptr && (set[0] != 0 || set[1] != 0)) {
        const SelectionSet* open = openSetOf(set, "acedSSSetFirst");
        if (open == nullptr) return RTERROR;
        for (const AcDbObjectId& id : open->ids()) {
            if (!id.isErased()) ids.push_back(id);
        }
    }
    setPickfirst(std::move(ids));
    return RTNORM;
}
