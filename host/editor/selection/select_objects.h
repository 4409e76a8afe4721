// The "Select objects:" dialogue and selections given in one go.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/editor/dialogue/input.h"
#include "host/editor/selection/filter.h"
#include "host/objectarx/object_id.h"

namespace host {

class Store;

/// Asks until Enter. `selection` holds what passes the filter, in the order of selection. None when
/// nothing was selected, Cancel after Esc.
PromptStatus selectObjects(const std::wstring& prompt, const SelectionFilter& filter,
                           std::vector<AcDbObjectId>& selection);
/// "Select objects:" until Enter; each answer echoes "n found, n total". Empty on Enter at once.
/// Takes the pick-first set without asking when there is one and `usePickfirst`.
PromptStatus promptSelection(const std::wstring& prompt, bool usePickfirst,
                             std::vector<AcDbObjectId>& selection);
/// One whole selection in one go, for PICK and UNPICK: "3,4", "W 0,0 10,10", "C ...", "ALL", "L",
/// "P", (handent "2A"). False, with one line of explanation, when it is no selection.
bool parseSelection(const std::vector<std::wstring>& words, std::vector<AcDbObjectId>& selection,
                    std::wstring& explanation);
/// Remembers a selection for "P".
void rememberSelection(const std::vector<AcDbObjectId>& selection);

/// Radius of the pick box in drawing units: PICKBOX pixels on a screen of 1000 pixels that shows
/// VIEWSIZE units.
double pickRadius(const Store& store);
/// Topmost entity at a point, or the null id.
AcDbObjectId entityUnder(const Store& store, const AcGePoint3d& point);
/// Entities in a box, in the order of selections (newest first by switch).
std::vector<AcDbObjectId> selectWindow(const Store& store, const AcGePoint3d& corner,
                                       const AcGePoint3d& opposite, bool crossing);
/// All of the current space on thawed layers, in that order.
std::vector<AcDbObjectId> selectAll(const Store& store);
/// The newest entity of the current space that is drawn, or nothing.
std::vector<AcDbObjectId> selectLast(const Store& store);
/// The previous selection without what was erased since.
std::vector<AcDbObjectId> selectPrevious();
/// Main entity with a handle (or that owns the sub-entity with it) in a space of the drawing;
/// otherwise the null id and one line of explanation.
AcDbObjectId selectHandle(const Store& store, const std::wstring& handle,
                          std::wstring& explanation);

}  // namespace host
