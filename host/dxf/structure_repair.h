// Supplies what every drawing needs and a loaded one lacks, without changing what is there.
#pragma once

#include <string>

#include "host/database/store.h"

namespace host {

/// Supplies tables (LTYPE, LAYER, STYLE, APPID, BLOCK_RECORD) and their indispensable records:
/// linetypes ByBlock, ByLayer and Continuous, layer 0, text style Standard, application ACAD, block
/// records of model space and paper space. Symbols must be indexed and handles assigned.
void supplyTables(Store& store);

/// Adds a block record of a name; for blocks that have none.
ObjectBody& supplyBlockRecord(Store& store, const std::wstring& name);

/// Supplies BLOCK and ENDBLK of model space and paper space.
void supplySpaceBlocks(Store& store);

/// Supplies the root dictionary and the sections that hold what the database adds.
void supplyObjects(Store& store);

}  // namespace host
