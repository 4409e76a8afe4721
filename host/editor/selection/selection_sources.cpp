// Where selected entities come from: a pick, a box, the whole space, a handle.
#include <algorithm>

#include "host/content/paper_viewport.h"
#include "host/control/switches.h"
#include "host/editor/selection/filter.h"
#include "host/editor/selection/selection_sources.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/sysvars.h"
#include "host/picking/hit_test.h"
#include "host/picking/layer_states.h"
#include "host/picking/view.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

std::vector<AcDbObjectId> inSelectionOrder(std::vector<AcDbObjectId> drawingOrder) {
    if (switches().newestFirst) std::reverse(drawingOrder.begin(), drawingOrder.end());
    return drawingOrder;
}

}  // namespace

double pickRadius(const Store& store) {
    constexpr double kScreenPixels = 1000;
    return sysvarInteger(L"PICKBOX") * viewHeight(store) / kScreenPixels;
}

AcDbObjectId entityUnder(const Store& store, const AcGePoint3d& point) {
    const double radius = pickRadius(store);
    const std::vector<AcDbObjectId> found = entitiesAt(store, point, radius);
    return found.size() == 1 ? found.front() : nearestOf(found, store, point, radius);
}

std::vector<AcDbObjectId> selectWindow(const Store& store, const AcGePoint3d& corner,
                                       const AcGePoint3d& opposite, bool crossing) {
    return inSelectionOrder(entitiesInWindow(store, corner, opposite, crossing));
}

std::vector<AcDbObjectId> selectAll(const Store& store) {
    std::vector<AcDbObjectId> all;
    LayerStates layers(store);
    for (const ObjectBody& entity : store.children(store.currentSpace())) {
        const bool selectable = !isPaperViewport(entity);
        if (selectable && !layers.frozen(textTag(entity.tags(), 8, "0")))
            all.push_back(store.idOf(entity));
    }
    return inSelectionOrder(std::move(all));
}

void appendMatching(const Store& store, Index space, const SelectionFilter& filter,
                    std::vector<AcDbObjectId>& ids) {
    for (const ObjectBody& entity : store.children(space))
        if (filter.matches(entity)) ids.push_back(store.idOf(entity));
}

std::vector<AcDbObjectId> selectMatching(const Store& store, const SelectionFilter& filter) {
    std::vector<AcDbObjectId> found;
    appendMatching(store, store.currentSpace(), filter, found);
    const auto isPaper = [](AcDbObjectId id) { return isPaperViewport(*Store::resolve(id)); };
    found.erase(std::remove_if(found.begin(), found.end(), isPaper), found.end());
    return inSelectionOrder(std::move(found));
}

std::vector<AcDbObjectId> selectLast(const Store& store) {
    const AcDbObjectId last = lastDrawn(store);
    if (last.isNull()) return {};
    return {last};
}

std::vector<AcDbObjectId> selectPrevious() {
    std::vector<AcDbObjectId> previous;
    if (const DocumentState* state = currentDocumentState()) {
        for (const AcDbObjectId& id : state->previous) {
            if (!id.isErased()) previous.push_back(id);
        }
    }
    return previous;
}

void rememberSelection(const std::vector<AcDbObjectId>& selection) {
    DocumentState* state = currentDocumentState();
    if (state != nullptr && !selection.empty()) state->previous = selection;
}

AcDbObjectId selectHandle(const Store& store, const std::wstring& handle,
                          std::wstring& explanation) {
    ObjectBody* body = store.byHandle(toUtf8(handle));
    ObjectBody* entity = body == nullptr ? nullptr : mainEntityOf(*body);
    const ObjectBody* owner = entity == nullptr ? nullptr : ownerOf(*entity);
    if (body == nullptr)
        explanation = L"no object has the handle " + handle;
    else if (entity == nullptr)
        explanation = L"the object with the handle " + handle + L" is no entity";
    else if (entity->erased || body->erased)
        explanation = L"the entity with the handle " + handle + L" is erased";
    else if (owner == nullptr || !isSpace(*owner))
        explanation = L"the entity with the handle " + handle + L" belongs to a block";
    else if (isPaperViewport(*entity))
        explanation = L"the entity with the handle " + handle + L" is the paper of its layout";
    else
        return store.idOf(*entity);
    return {};
}

}  // namespace host
