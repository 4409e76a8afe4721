// acedSSGet with its modes.
#include <algorithm>
#include <cstring>

#include "host/control/faults.h"
#include "host/control/switches.h"
#include "host/editor/selection/filter.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/selection/selection_sets.h"
#include "host/editor/selection/selection_sources.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/notify.h"
#include "host/editor/state/sysvars.h"
#include "host/objectarx/selection_sets.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Arguments of one call.
struct Request {
    std::wstring mode;  ///< upper case, without "_"; empty for the user's selection
    const void* first = nullptr;
    const void* second = nullptr;
    SelectionFilter filter;
    bool hasFilter = false;
};

using Ids = std::vector<AcDbObjectId>;

AcGePoint3d pointAt(const void* point) {
    ads_point values;
    std::memcpy(values, point, sizeof values);
    return asPnt3d(values);
}

/// What passes the filter in every space, the current one last in drawing order: so its newest
/// entity comes first when the newest come first.
Ids wholeDatabase(const Store& store, const SelectionFilter& filter) {
    Ids ids;
    const Index current = store.currentSpace();
    for (const ObjectBody& record : store.children(store.table("BLOCK_RECORD")))
        if (record.self != current && isSpace(record))
            appendMatching(store, record.self, filter, ids);
    appendMatching(store, current, filter, ids);
    if (switches().newestFirst) std::reverse(ids.begin(), ids.end());
    return ids;
}

/// The user's selection: the pick-first set when nothing else is given, then the dialogue.
int selectByUser(const Request& request, Ids& ids) {
    if (!request.hasFilter) ids = takePickfirst();
    if (!ids.empty()) {
        rememberSelection(ids);
        return RTNORM;
    }
    if (!inputAllowed("acedSSGet")) return RTERROR;
    switch (selectObjects(request.filter, ids)) {
        case PromptStatus::Ok:
            return RTNORM;
        case PromptStatus::None:
            setErrno(kErrnoEmptyAnswer);
            return RTERROR;
        default:
            return RTCAN;
    }
}

/// Entities of a request before the filter. RTREJ for a mode that is not served, or points that do
/// not fit the mode.
int gather(const Store& store, const Request& request, Ids& ids) {
    const std::wstring& mode = request.mode;
    const int points = (request.first != nullptr ? 1 : 0) + (request.second != nullptr ? 1 : 0);
    if (mode == L"W" || mode == L"C") {
        if (points != 2) return RTREJ;
        ids = selectWindow(store, pointAt(request.first), pointAt(request.second), mode == L"C");
        return RTNORM;
    }
    if (request.second != nullptr || (request.first != nullptr && !mode.empty())) return RTREJ;
    if (mode.empty() && request.first != nullptr) {
        const AcDbObjectId id = entityUnder(store, pointAt(request.first));
        if (!id.isNull()) ids.push_back(id);
        return RTNORM;
    }
    if (mode.empty()) return selectByUser(request, ids);
    if (mode == L"I")
        ids = takePickfirst();
    else if (mode == L"X")
        ids = wholeDatabase(store, request.filter);
    else if (mode == L"A")
        ids = selectAll(store);
    else if (mode == L"L")
        ids = selectLast(store);
    else if (mode == L"P")
        ids = selectPrevious();
    else
        return RTREJ;
    return RTNORM;
}

/// Takes out what was erased or does not pass the filter.
void applyFilter(const SelectionFilter& filter, Ids& ids) {
    const auto fails = [&](const AcDbObjectId& id) {
        const ObjectBody* body = Store::resolve(id);
        return body == nullptr || body->erased || !filter.matches(*body);
    };
    ids.erase(std::remove_if(ids.begin(), ids.end(), fails), ids.end());
}

}  // namespace
}  // namespace host

using namespace host;

int acedSSGet(const ACHAR* mode, const void* pt1, const void* pt2, const resbuf* filter,
              ads_name set) {
    if (callFails("acedSSGet")) return RTERROR;
    const Store* store = currentStore();
    if (store == nullptr) return RTERROR;
    Request request;
    request.first = pt1;
    request.second = pt2;
    request.hasFilter = filter != nullptr;
    if (set == nullptr || !SelectionFilter::read(filter, request.filter)) return RTREJ;
    if (mode != nullptr) request.mode = foldCase(mode);
    if (!request.mode.empty() && request.mode[0] == L'_') request.mode.erase(0, 1);
    if (!canOpenSet()) return RTERROR;
    Ids ids;
    const int result = gather(*store, request, ids);
    if (result != RTNORM) return result;
    applyFilter(request.filter, ids);
    if (ids.empty()) {
        setErrno(kErrnoNothingPicked);
        return RTERROR;
    }
    if (!canOpenSet()) return RTERROR;  // a handler of the notification may have taken the last one
    openSet(SelectionSet(std::move(ids)), set);
    return RTNORM;
}
