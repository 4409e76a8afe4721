// Supplies what every drawing needs and a loaded one lacks, without changing what is there.
#pragma once

#include <string_view>

#include "host/store/store.h"

namespace host {

/// Supplies tables (LTYPE, LAYER, STYLE, APPID, BLOCK_RECORD) and their indispensable records:
/// linetypes ByBlock, ByLayer and Continuous, layer 0, text style Standard, application ACAD, block
/// records of model space and paper space. Symbols must be indexed and handles assigned.
void supplyTables(Store& store);

/// The block record of a name, added when there is none. The name is in the drawing's encoding:
/// were it converted, a name with escapes would not come out as its block has it.
ObjectBody& supplyBlockRecord(Store& store, std::string_view name);

/// Supplies BLOCK and ENDBLK of model space and paper space.
void supplySpaceBlocks(Store& store);

/// Supplies the root dictionary and the sections that hold what the database adds.
void supplyObjects(Store& store);

}  // namespace host
