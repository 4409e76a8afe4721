// The view: where drawings keep it, and what stands in for one.
#include "host/picking/view.h"

#include <algorithm>
#include <cmath>

#include "host/content/fields.h"
#include "host/content/paper_viewport.h"
#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

/// The object that holds a view, null for none, and its fields.
struct ViewPlace {
    ObjectBody* holder = nullptr;
    RealField height, aspect, centreX, centreY;
};

ViewPlace placeIn(ObjectBody* holder, std::string_view part, int height, int aspect) {
    return {holder,
            {{part, height, 0, true}, 0},
            {{part, aspect}, 1},
            {{part, 12, 0, true}, 0},
            {{part, 22, 0, true}, 0}};
}

ViewPlace viewPlace(const Store& store) {
    const Index space = store.currentSpace();
    if (space == store.modelSpace()) {
        ObjectBody* const active = store.liveSymbol("VPORT", L"*Active");
        if (active == nullptr) return {};
        return placeIn(active, "AcDbViewportTableRecord", 40, 41);
    }
    for (ObjectBody& entity : store.children(space))
        if (isPaperViewport(entity)) return placeIn(&entity, "AcDbViewport", 45, 0);
    return {};
}

bool isHeight(double height) { return height > 0 && std::isfinite(height); }

double heightFor(const Box& box, double aspect) {
    return std::max(box.top - box.bottom, (box.right - box.left) / aspect);
}

double aspectOf(const ViewPlace& view) {
    const double aspect = view.holder != nullptr ? getField(*view.holder, view.aspect) : 1;
    return isHeight(aspect) ? aspect : 1;
}

bool setHeight(Store& store, const ViewPlace& view, double height) {
    if (!isHeight(height)) return false;
    if (view.holder != nullptr)
        setField(*view.holder, view.height, height);
    else
        store.assumedViewHeight = height;
    return true;
}

}  // namespace

std::optional<Box> extentsOf(const Store& store) {
    std::optional<Box> extents;
    OutlineMaker maker(store);
    for (const ObjectBody& entity : store.children(store.currentSpace()))
        extend(extents, maker.outlineOf(entity).bounds());
    maker.tellFrames();
    return extents;
}

double viewHeight(const Store& store) {
    constexpr double kSheet = 297;  // millimetres
    const ViewPlace view = viewPlace(store);
    const double stored = view.holder != nullptr ? getField(*view.holder, view.height) : 0;
    if (isHeight(stored)) return stored;
    if (store.assumedViewHeight > 0) return store.assumedViewHeight;
    const std::optional<Box> extents = extentsOf(store);
    const double height = extents ? heightFor(*extents, aspectOf(view)) : 0;
    return isHeight(height) ? store.assumedViewHeight = height : kSheet;
}

bool showBox(Store& store, const Box& box) {
    const ViewPlace view = viewPlace(store);
    const double x = (box.left + box.right) / 2, y = (box.bottom + box.top) / 2;
    if (!std::isfinite(x) || !std::isfinite(y)) return false;
    if (!setHeight(store, view, heightFor(box, aspectOf(view)))) return false;
    if (view.holder == nullptr) return true;
    setField(*view.holder, view.centreX, x);
    setField(*view.holder, view.centreY, y);
    return true;
}

bool scaleView(Store& store, double factor) {
    return setHeight(store, viewPlace(store), viewHeight(store) * factor);
}

}  // namespace host
