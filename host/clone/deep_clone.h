// Deep cloning: copies objects with all they own and translates references among the copies.
#pragma once

#include <vector>

#include "host/clone/clone_map.h"

namespace host {

class Store;

/// Clones each source, a live main entity, with what it owns, hard and soft, and appends the clones
/// to `owner`, a block record of the same store, in list order. A source that the map holds already
/// is passed over. No access checks; the interface call makes them.
void copyWithOwned(Store& store, const std::vector<ObjectBody*>& sources, ObjectBody& owner,
                   CloneMap& map);
/// The second half: turns the references among all that the map holds, once all copying is done.
void translateReferences(Store& store, const CloneMap& map);

}  // namespace host
