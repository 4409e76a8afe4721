// Which entities a pick, a window or a crossing reaches.
#pragma once

#include <vector>

#include "host/objectarx/geometry.h"
#include "host/objectarx/object_id.h"

namespace host {

class Store;

/// Main entities of the current space that are drawn (not on a layer that is off or frozen, not
/// invisible, with graphics) within `tolerance` drawing units of the point in the XY plane; in
/// drawing order.
std::vector<AcDbObjectId> entitiesAt(const Store& store, const AcGePoint3d& point,
                                     double tolerance);
/// Those wholly inside the window, or (crossing) also those it touches; in drawing order.
std::vector<AcDbObjectId> entitiesInWindow(const Store& store, const AcGePoint3d& corner,
                                           const AcGePoint3d& opposite, bool crossing);
/// The one of some entities in drawing order whose stroke or edge is nearest to the point; what is
/// merely filled there counts as `tolerance` away. The newest of those equally near; null for none.
AcDbObjectId nearestOf(const std::vector<AcDbObjectId>& entities, const Store& store,
                       const AcGePoint3d& point, double tolerance);
/// The last entity of the current space of which something is drawn; null for none.
AcDbObjectId lastDrawn(const Store& store);

}  // namespace host
