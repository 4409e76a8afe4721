// The entities that an editing command works on.
#pragma once

#include <string>
#include <vector>

#include "host/store/object_body.h"
#include "host/transform/transform.h"

namespace host {

/// What becomes of selected entities on locked layers: they can be copied but not changed.
enum class Locked { Taken, LeftOut };

/// "Select objects:", or the pick-first set. The live entities in drawing order, or by switch in
/// the order of their selection; how many stand on a locked layer and are left out is told. False
/// when the prompt was cancelled.
bool selectEntities(Locked locked, std::vector<ObjectBody*>& entities);
/// Erases entities with what they own, and takes them out of the pick-first set.
void eraseEntities(const std::vector<ObjectBody*>& entities);
/// True when all of them can be transformed; else the reason of the first that cannot is told.
bool canTransform(EntityTransform& transform, const std::vector<ObjectBody*>& entities);

}  // namespace host
