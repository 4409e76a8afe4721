// The two marker blocks: definitions that hold nothing but invisible attribute definitions.
#pragma once

#include <string>

#include "platform.h"

/// Field length of a marker's attributes and of their definitions.
const Adesk::UInt16 kMarkerFieldLength = 25;

/// Creates whichever of the two marker blocks the working drawing lacks, the begin block first.
void ensureMarkerBlocks();

/// Creates the group layer and one marker block, and gives the new block's id. A begin block has
/// two attribute definitions, an end block one. Prints a line, and makes nothing, when the linetype
/// table cannot be opened.
void createMarkerBlock(AcDbObjectId& blockId, const std::wstring& blockName);
