// The entities that an editing command works on.
#pragma once

#include <vector>

#include "host/editor/run/command_runner.h"
#include "host/store/object_body.h"
#include "host/transform/transform.h"

namespace host {

/// What becomes of selected entities on locked layers: they can be copied but not changed.
enum class Locked { Taken, LeftOut };

using EntityWork = CommandStatus (*)(Store& store, const std::vector<ObjectBody*>& entities);

/// Selects by "Select objects:", or takes the pick-first set, and does `work` on the live entities
/// in drawing order, or by switch in the order of their selection; how many stand on a locked layer
/// and are left out is told. Done without work when nothing is left, Cancelled when the prompt was,
/// Failed, with one line of explanation, without a drawing.
CommandStatus editSelection(Locked locked, EntityWork work);
/// A command that does so.
template <Locked locked, EntityWork work>
CommandStatus onSelection() {
    return editSelection(locked, work);
}

/// Erases entities with what they own, and takes them out of the pick-first set.
void eraseEntities(const std::vector<ObjectBody*>& entities);
/// True when all of them can be transformed; else the reason of the first that cannot is told.
bool canTransform(EntityTransform& transform, const std::vector<ObjectBody*>& entities);

}  // namespace host
