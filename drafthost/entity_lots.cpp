// Sorts entities by layer, block or color.
#include "drafthost/entity_lots.h"

#include <cstdlib>
#include <unordered_set>

#include "host/content/paper_viewport.h"
#include "host/tags/tags.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace {

using host::ObjectBody;
using host::Store;

std::string_view valueOf(std::string_view tags, int code, std::string_view otherwise) {
    const auto place = host::findTag(tags, code);
    return place ? host::trimmed(place->value) : otherwise;
}

std::string text(const Store& store, std::string_view value) {
    return host::toUtf8(store.decode(value));
}

std::string layerOf(const Store& store, const ObjectBody& entity) {
    return text(store, valueOf(entity.tags(), 8, "0"));
}

/// Empty for what is no reference to a block with a name.
std::string blockOf(const Store& store, const ObjectBody& entity) {
    if (entity.type() != "INSERT") return {};
    std::string name = text(store, valueOf(entity.tags(), 2, ""));
    return name.rfind('*', 0) == 0 ? std::string() : name;
}

/// The color that tags name; empty where they leave it to the layer.
std::string colorIn(std::string_view tags) {
    if (const auto rgb = host::parseInteger(valueOf(tags, 420, ""))) {
        const auto part = [&](int shift) { return std::to_string(*rgb >> shift & 0xff); };
        return part(16) + "-" + part(8) + "-" + part(0);
    }
    constexpr long long kByLayer = 256;
    const long long index =
        std::llabs(host::parseInteger(valueOf(tags, 62, "")).value_or(kByLayer));
    if (index == 0) return "BYBLOCK";
    return index < kByLayer ? std::to_string(index) : std::string();
}

std::string colorOf(const Store& store, const ObjectBody& entity) {
    const auto part = host::subclassPart(entity.tags(), "AcDbEntity");
    std::string color = colorIn(part ? *part : entity.tags());
    if (!color.empty()) return color;
    const ObjectBody* layer = store.symbol("LAYER", store.decode(valueOf(entity.tags(), 8, "0")));
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
    for (host::Index i = store.firstLive(space); i != host::kNoIndex;
         i = store.nextLive(store.at(i))) {
        const ObjectBody& entity = store.at(i);
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
