// The layer that holds the group markers.
#pragma once

#include <string>

#include "platform.h"

/// Makes a layer, or updates the one of that name, in the working drawing: colour index, linetype
/// and, with `thawAndMakeCurrent`, thawed and current. Prints a line when the layer table cannot
/// be opened.
void makeLayer(const std::wstring& name, Adesk::UInt16 colorIndex, const AcDbObjectId& linetype,
               int thawAndMakeCurrent);
