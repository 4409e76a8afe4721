// Where selected entities come from: a pick, a box, the whole space, a handle.
#pragma once

#include <string>
#include <vector>

#include "host/objectarx/geometry.h"
#include "host/objectarx/object_id.h"
#include "host/store/object_body.h"

namespace host {

class SelectionFilter;
class Store;

/// Radius of the pick box in drawing units: PICKBOX pixels on a screen of 1000 pixels that shows
/// VIEWSIZE units.
double pickRadius(const Store& store);
/// The entity that a pick at a point takes, or the null id. With several in the pick box it is the
/// nearest, of several equally near the newest (chosen: nothing is documented).
AcDbObjectId entityUnder(const Store& store, const AcGePoint3d& point);
/// Entities in a box, in the order of selections (newest first by switch).
std::vector<AcDbObjectId> selectWindow(const Store& store, const AcGePoint3d& corner,
                                       const AcGePoint3d& opposite, bool crossing);
/// All of the current space on thawed layers, in that order.
std::vector<AcDbObjectId> selectAll(const Store& store);
/// Appends what passes a filter in a space, in drawing order, whatever its layer's state.
void appendMatching(const Store& store, Index space, const SelectionFilter& filter,
                    std::vector<AcDbObjectId>& ids);
/// The same for the current space without the paper of a layout, in the order of selections.
std::vector<AcDbObjectId> selectMatching(const Store& store, const SelectionFilter& filter);
/// The newest entity of the current space that is drawn, or nothing.
std::vector<AcDbObjectId> selectLast(const Store& store);
/// The previous selection without what was erased since.
std::vector<AcDbObjectId> selectPrevious();
/// Remembers a selection for "P".
void rememberSelection(const std::vector<AcDbObjectId>& selection);
/// Main entity with a handle (or that owns the sub-entity with it) in a space of the drawing;
/// otherwise the null id and one line of explanation.
AcDbObjectId selectHandle(const Store& store, const std::wstring& handle,
                          std::wstring& explanation);

}  // namespace host
