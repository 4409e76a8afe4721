// Reading and applying the filters of selection sets.
#include "host/editor/selection/filter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/editor/state/current_drawing.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"
#include "host/tags/tag_walk.h"
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

bool SelectionFilter::readItem(const resbuf& buffer, Item& item) {
    item.code = buffer.restype == RTDXF0 ? 0 : buffer.restype;
    if (item.code < 0 || item.code >= 1000) return false;
    switch (valueKindOf(item.code)) {
        case ValueKind::Text:
            if (buffer.resval.rstring == nullptr) return false;
            item.isText = true;
            item.pattern = buffer.resval.rstring;
            if (isNameCode(item.code)) item.pattern = foldCase(item.pattern);
            if (item.code == 0) item.kind = kindOfOneType(toUtf8(item.pattern));
            return true;
        case ValueKind::Real:
            item.number = buffer.resval.rreal;
            return true;
        case ValueKind::Short:
            item.number = buffer.resval.rint;
            return true;
        case ValueKind::Long:
            item.number = buffer.resval.rlong;
            return true;
        default:
            return false;
    }
}

/// At an opening operator: reads what stands up to the closing one, where `at` is left.
bool SelectionFilter::readOperator(const resbuf*& at, int depth, Group& outer) {
    constexpr int kDeepest = 100;
    constexpr std::pair<const wchar_t*, Operator> kOperators[] = {{L"AND", Operator::And},
                                                                  {L"OR", Operator::Or},
                                                                  {L"XOR", Operator::Xor},
                                                                  {L"NOT", Operator::Not}};
    if (at->resval.rstring == nullptr || depth == kDeepest) return false;
    const std::wstring text = foldCase(at->resval.rstring);
    for (const auto& [name, by] : kOperators) {
        if (text != std::wstring(L"<") + name) continue;
        Group group{by};
        at = at->rbnext;
        if (!readGroup(at, std::wstring(name) + L">", depth + 1, group)) return false;
        const std::size_t parts = group.items.size() + group.groups.size();
        if ((by == Operator::Not && parts != 1) || (by == Operator::Xor && parts != 2))
            return false;
        outer.groups.push_back(std::move(group));
        return true;
    }
    return false;
}

bool SelectionFilter::readGroup(const resbuf*& at, const std::wstring& end, int depth,
                                Group& group) {
    constexpr int kOperator = -4;
    for (; at != nullptr; at = at->rbnext) {
        if (at->restype != kOperator) {
            if (!readItem(*at, group.items.emplace_back())) return false;
            continue;
        }
        const wchar_t* const text = at->resval.rstring;
        if (!end.empty() && text != nullptr && foldCase(text) == end) return true;
        if (!readOperator(at, depth, group)) return false;
    }
    return end.empty();
}

bool SelectionFilter::read(const resbuf* list, SelectionFilter& filter) {
    filter.m_all = {};
    return readGroup(list, {}, 0, filter.m_all);
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

bool SelectionFilter::Group::matches(const ObjectBody& entity) const {
    const auto passed = [&](const auto& part) { return part.matches(entity); };
    switch (by) {
        case Operator::Or:
            return std::any_of(items.begin(), items.end(), passed) ||
                   std::any_of(groups.begin(), groups.end(), passed);
        case Operator::Xor:
            return (std::count_if(items.begin(), items.end(), passed) +
                    std::count_if(groups.begin(), groups.end(), passed)) == 1;
        default:
            break;
    }
    const bool all = std::all_of(items.begin(), items.end(), passed) &&
                     std::all_of(groups.begin(), groups.end(), passed);
    return all != (by == Operator::Not);
}

bool SelectionFilter::matches(const ObjectBody& entity) const { return m_all.matches(entity); }

}  // namespace host
