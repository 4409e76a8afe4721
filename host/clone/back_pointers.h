// What definitions keep of the objects that use them.
#pragma once

#include "host/clone/clone_map.h"

namespace host {

/// Styles and definitions name what uses them: dimensions, leaders and tables among the reactors of
/// their style, images those of their definition, block references in the block's record. Where one
/// names a source, what the clone uses in its place comes to name the clone (assumed). Clones made
/// from slot `firstNew` on are translated themselves. Behind the translation.
void enterInDefinitions(const Store& from, Store& to, const CloneMap& map, Index firstNew);

/// Makes a definition forget one that uses another now.
void leaveDefinition(ObjectBody& definition, std::uint64_t user);

}  // namespace host
