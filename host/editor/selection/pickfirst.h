// The pick-first set of the current document, and the gestures that change it.
#pragma once

#include <vector>

#include "host/objectarx/object_id.h"

namespace host {

/// The set as it stands; empty when no document is open.
const std::vector<AcDbObjectId>& pickfirst();
/// Replaces the set and notifies pickfirstModified (inside, or at the next idle moment).
void setPickfirst(std::vector<AcDbObjectId> ids);
/// As a click or a window at the empty prompt: PICKADD 0 replaces the set, 1 and 2 add to it; with
/// PICKFIRST 0 nothing is selected before a command. Entities already in the set stay in place.
/// Notifies when the set changed, and also with PICKFIRST 0 (the gesture happened).
void pick(const std::vector<AcDbObjectId>& ids);
/// The same with Shift held: removes the entities; with PICKADD 0 Shift adds those not yet in.
void unpick(const std::vector<AcDbObjectId>& ids);
/// Esc at the empty prompt: clears the set.
void pickNothing();
/// What a command or the module gets when it reads the set: nothing with PICKFIRST 0. Inside a
/// command with the use-pick-set flag alone, reading clears the set (documented); it notifies by
/// switch.
std::vector<AcDbObjectId> takePickfirst();
/// True where acedSSSetFirst has an effect: outside commands, and in those with either pick-first
/// flag.
bool pickfirstSettable();
/// Notifies as if the set had changed.
void notifyUnchangedPickfirst();
/// Clears the set at the start or the end of a command. Notifies by switch when it was not empty.
void dropPickfirst();
/// Takes erased entities out, and notifies when there were any; called after every erasure by a
/// command.
void dropErasedFromPickfirst();

}  // namespace host
