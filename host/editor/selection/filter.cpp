// Reading and applying the filters of selection sets.
#include "host/editor/selection/filter.h"

#include <algorithm>
#include <cmath>

#include "host/editor/state/current_drawing.h"
#include "host/objects/result_buffer_tools.h"
#include "host/store/store.h"
#include "host/tags/tag_view.h"
#include "host/text/wildcard.h"

namespace host {
namespace {

bool between(int code, int low, int high) { return low <= code && code <= high; }

/// Tags whose text is a name, which is compared without regard to case.
bool isNameCode(int code) { return code == 0 || code == 2 || between(code, 5, 8) || code == 410; }

struct Default {
    int code;
    std::string_view value;
};

/// What an entity without the tag has.
constexpr Default kDefaults[] = {{6, "BYLAYER"}, {7, "STANDARD"}, {8, "0"},  {48, "1.0"}, {60, "0"},
                                 {62, "256"},    {66, "0"},       {67, "0"}, {370, "-1"}};

std::string_view defaultOf(int code) {
    for (const Default& entry : kDefaults) {
        if (entry.code == code) return entry.value;
    }
    return {};
}

bool sameNumber(double left, double right) {
    return std::fabs(left - right) <= 1e-10 * std::max(1.0, std::fabs(left));
}

}  // namespace

bool SelectionFilter::read(const resbuf* list, SelectionFilter& filter) {
    for (; list != nullptr; list = list->rbnext) {
        Item item;
        item.code = list->restype == RTDXF0 ? 0 : list->restype;
        if (item.code < 0 || item.code >= 1000) return false;
        switch (valueKindOf(item.code)) {
            case ValueKind::Text:
                if (list->resval.rstring == nullptr) return false;
                item.isText = true;
                item.pattern = list->resval.rstring;
                if (isNameCode(item.code)) item.pattern = foldCase(item.pattern);
                if (item.code == 0) item.kind = kindOfOneType(toUtf8(item.pattern));
                break;
            case ValueKind::Real:
                item.number = list->resval.rreal;
                break;
            case ValueKind::Short:
                item.number = list->resval.rint;
                break;
            case ValueKind::Long:
                item.number = list->resval.rlong;
                break;
            default:
                return false;
        }
        filter.m_items.push_back(std::move(item));
    }
    return true;
}

bool SelectionFilter::Item::passes(const Store& store, std::string_view value) const {
    if (!isText) {
        const std::optional<double> found = parseReal(value);
        return found && sameNumber(*found, number);
    }
    if (value != tested || value.empty()) {
        const std::wstring text = store.decode(value);
        passed = wildcardMatch(pattern, isNameCode(code) ? foldCase(text) : text);
        tested = value;
    }
    return passed;
}

bool SelectionFilter::Item::matches(const ObjectBody& entity) const {
    const Store& store = *entity.store;
    if (kind) return entity.kind == *kind;
    if (code == 0) return passes(store, entity.type());
    if (code == 410) return wildcardMatch(pattern, foldCase(layoutName(store, entity.owner)));
    bool present = false;
    TagWalk tags(entity.tags());
    while (tags.nextOwn()) {
        if (tags.code() != code) continue;
        if (passes(store, tags.value())) return true;
        present = true;
    }
    const std::string_view standard = defaultOf(code);
    return !present && !standard.empty() && passes(store, standard);
}

bool SelectionFilter::matches(const ObjectBody& entity) const {
    return std::all_of(m_items.begin(), m_items.end(),
                       [&](const Item& item) { return item.matches(entity); });
}

}  // namespace host
