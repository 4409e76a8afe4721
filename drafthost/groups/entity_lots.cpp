// Sorts entities by layer, block or color.
#include "drafthost/groups/entity_lots.h"

#include <cstdlib>
#include <unordered_set>

#include "host/content/paper_viewport.h"
#include "host/tags/tag_values.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace {

using host::ObjectBody;
using host::Store;

std::string layerOf(const Store& store, const ObjectBody& entity) {
    return host::toUtf8(store.decode(host::textTag(entity.tags(), 8, "0")));
}

/// Empty for what is no reference to a block with a name.
std::string blockOf(const Store& store, const ObjectBody& entity) {
    if (entity.type() != "INSERT") return {};
    std::string name = host::toUtf8(store.decode(host::textTag(entity.tags(), 2)));
    return name.rfind('*', 0) == 0 ? std::string() : name;
}

/// The color that tags name; empty where they leave it to the layer.
std::string colorIn(std::string_view tags) {
    constexpr std::string_view kCommon = "AcDbEntity";
    if (const int rgb = host::integerTag(tags, {kCommon, 420}, -1); rgb >= 0) {
        const auto part = [&](int shift) { return std::to_string(rgb >> shift & 0xff); };
        return part(16) + "-" + part(8) + "-" + part(0);
    }
    constexpr int kByLayer = 256;
    const int index = std::abs(host::integerTag(tags, {kCommon, 62}, kByLayer));
    if (index == 0) return "BYBLOCK";
    return index < kByLayer ? std::to_string(index) : std::string();
}

std::string colorOf(const Store& store, const ObjectBody& entity) {
    std::string color = colorIn(entity.tags());
    if (!color.empty()) return color;
    const ObjectBody* layer =
        store.symbol("LAYER", store.decode(host::textTag(entity.tags(), 8, "0")));
    color = layer != nullptr ? colorIn(layer->tags()) : color;
    return color.empty() ? "7" : color;
}

std::string nameFor(const Store& store, const ObjectBody& entity, LotBy by) {
    switch (by) {
        case LotBy::Layer:
            return layerOf(store, entity);
        case LotBy::Block:
            return blockOf(store, entity);
        default:
            return colorOf(store, entity);
    }
}

/// Without case, and with numbers in their order.
std::wstring keyOf(const std::string& name, LotBy by) {
    constexpr std::size_t kDigits = 3;
    const bool number = by == LotBy::Color && name.size() < kDigits;
    return host::foldCase(
        host::fromUtf8((number ? std::string(kDigits - name.size(), '0') : "") + name));
}

}  // namespace

void addLots(const Store& store, host::Index space, LotBy by, const inspection::Inspection& found,
             Lots& lots) {
    std::unordered_set<std::string> grouped;
    for (const inspection::Group& group : found.groups) {
        for (const inspection::Entity& member : group.members)
            grouped.insert(member.handle);
    }
    for (const ObjectBody& entity : store.children(space)) {
        const std::string name = nameFor(store, entity, by);
        if (name.empty() || host::isPaperViewport(entity)) continue;
        if (inspection::isMarkerName(layerOf(store, entity)) ||
            inspection::isMarkerName(blockOf(store, entity)))
            continue;
        Lot& lot = lots[keyOf(name, by)];
        if (lot.name.empty()) lot.name = name;
        if (grouped.count(host::formatHandle(entity.handle)) != 0)
            ++lot.grouped;
        else if (store.onLockedLayer(entity))
            ++lot.locked;
        else if (entity.kind == host::Kind::Polyline3d || entity.kind == host::Kind::OtherPolyline)
            ++lot.unfit;
        else
            lot.free.push_back(store.idOf(entity));
    }
}
