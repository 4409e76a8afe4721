// Picks and windows over the current space.
#include "host/picking/hit_test.h"

#include <algorithm>

#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

template <typename Test>
std::vector<AcDbObjectId> entitiesWhere(const Store& store, Test test) {
    std::vector<AcDbObjectId> found;
    OutlineMaker maker(store);
    for (const ObjectBody& entity : store.children(store.currentSpace()))
        if (test(maker.outlineOf(entity))) found.push_back(store.idOf(entity));
    maker.tellFrames();
    return found;
}

}  // namespace

std::vector<AcDbObjectId> entitiesAt(const Store& store, const AcGePoint3d& point,
                                     double tolerance) {
    const Vec where{point.x, point.y, 0};
    return entitiesWhere(store,
                         [&](const Outline& outline) { return outline.near(where, tolerance); });
}

std::vector<AcDbObjectId> entitiesInWindow(const Store& store, const AcGePoint3d& corner,
                                           const AcGePoint3d& opposite, bool crossing) {
    const Box box{std::min(corner.x, opposite.x), std::min(corner.y, opposite.y),
                  std::max(corner.x, opposite.x), std::max(corner.y, opposite.y)};
    return entitiesWhere(store, [&](const Outline& outline) {
        return crossing ? outline.touches(box) : outline.inside(box);
    });
}

AcDbObjectId nearestOf(const std::vector<AcDbObjectId>& entities, const Store& store,
                       const AcGePoint3d& point, double tolerance) {
    AcDbObjectId nearest;
    double least = tolerance;
    OutlineMaker maker(store);
    for (const AcDbObjectId id : entities) {
        const Outline outline = maker.outlineOf(*Store::resolve(id));
        const double away = std::min(outline.distanceFrom({point.x, point.y, 0}), tolerance);
        if (away > least) continue;
        least = away;
        nearest = id;
    }
    return nearest;
}

AcDbObjectId lastDrawn(const Store& store) {
    OutlineMaker maker(store);
    const Index space = store.currentSpace();
    for (Index i = space == kNoIndex ? kNoIndex : store.lastLive(space); i != kNoIndex;
         i = store.previousLive(store.at(i)))
        if (!maker.outlineOf(store.at(i)).empty()) return store.idOf(i);
    return {};
}

}  // namespace host
