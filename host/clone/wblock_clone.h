// Cloning entities from one drawing into another with all that they need there.
#pragma once

#include <vector>

#include "host/store/object_body.h"

namespace host {

class Store;

/// Clones main entities of one drawing into a block record of another drawing, appended in list
/// order, and gives the clones in that order.
///
/// Hard owners and hard pointers are followed: attributes, vertices, extension dictionaries with
/// their records, and by name or handle layers, linetypes, styles, block definitions and entries of
/// named dictionaries. What the target has under the same name wins; anonymous blocks get a name of
/// their own. Entities that are reached come along behind the others. What is only softly owned or
/// pointed at stays behind: such references are dropped, or become 0 unless their object is cloned
/// too. No access checks, nothing fails.
std::vector<Index> wblockClone(const std::vector<const ObjectBody*>& sources, Store& to,
                               ObjectBody& owner);

}  // namespace host
