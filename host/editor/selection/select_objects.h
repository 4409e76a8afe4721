// The "Select objects:" dialogue and selections given in one go.
#pragma once

#include <string>
#include <vector>

#include "host/editor/dialogue/input.h"
#include "host/editor/selection/filter.h"
#include "host/objectarx/object_id.h"

namespace host {

/// Asks until Enter. `selection` holds what passes the filter, in the order of selection. None when
/// nothing was selected, Cancel after Esc.
PromptStatus selectObjects(const SelectionFilter& filter, std::vector<AcDbObjectId>& selection);
/// "Select objects:" until Enter; each answer echoes "n found, n total". Empty on Enter at once.
/// Takes the pick-first set without asking when there is one.
PromptStatus promptSelection(std::vector<AcDbObjectId>& selection);
/// One whole selection in one go, for PICK and UNPICK: "3,4", "W 0,0 10,10", "C ...", "ALL", "L",
/// "P", (handent "2A"), (ssget "X" '((8 . "0"))). False, with one line of explanation, when it is
/// no selection.
bool parseSelection(const std::vector<std::wstring>& words, std::vector<AcDbObjectId>& selection,
                    std::wstring& explanation);

}  // namespace host
