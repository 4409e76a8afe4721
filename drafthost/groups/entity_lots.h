// The entities of a space by layer, block or color.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/objectarx/object_id.h"
#include "host/store/store.h"
#include "inspection/inspection.h"

enum class LotBy { Layer, Block, Color };
/// Their names, in this order.
inline constexpr const char* kLotNames[] = {"layer", "block", "color"};

/// What bears one name. Texts are UTF-8.
struct Lot {
    std::string name;
    std::vector<AcDbObjectId> free;  ///< what can become a group, in drawing order
    long grouped = 0;                ///< in a group already, whole or not
    long locked = 0;                 ///< on a locked layer
    long unfit = 0;                  ///< 3D polylines and meshes, whose groups do not last

    long all() const { return static_cast<long>(free.size()) + grouped + locked + unfit; }
};

/// Lots in the order of their names, by a key that does not mind case. Markers are in none, nor the
/// paper of a layout. Names are: those of layers; those of blocks, anonymous ones aside; colors as
/// they are seen, so of the layer where an entity takes that: "1" to "255", "255-128-0" for a true
/// one, "BYBLOCK".
using Lots = std::map<std::wstring, Lot>;
/// Sorts the entities of a space into lots. `found` is the inspection of the drawing.
void addLots(const host::Store& store, host::Index space, LotBy by,
             const inspection::Inspection& found, Lots& lots);
