// Checking and transforming whole entities: their parts, and the pictures of dimensions.
#include "host/transform/transform.h"

#include <cmath>

#include "host/clone/dimension_blocks.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tag_edit.h"
#include "host/tags/tags.h"
#include "host/transform/transform_rules.h"
#include "host/transform/transform_tags.h"

namespace host {
namespace {

/// Extrusion of the body's object coordinates. Vertices have their polyline's.
Vec extrusionOf(const ObjectBody& body) {
    const ObjectBody& holder = body.kind == Kind::Vertex ? body.store->at(body.owner) : body;
    TagEdit tags(holder.tags());
    const auto at = tags.find(210);
    return at ? tags.point(*at) : Vec{0, 0, 1};
}

bool isDimension(const ObjectBody& body) { return trimmed(body.type()) == "DIMENSION"; }

/// True for a paragraph text that is centred in both directions.
bool isCentredText(const ObjectBody& body) {
    constexpr int kMiddleCentre = 5;
    return trimmed(body.type()) == "MTEXT" && integerTag(body.tags(), 71, 1) == kMiddleCentre;
}

/// An ordinate along X or Y of the drawing stays one only where the mirror line is along an axis.
bool isSlantedOrdinate(const TagEdit& edit, const RigidMap& map) {
    constexpr int kTypeBits = 7, kOrdinate = 6;
    constexpr double kLevel = 1e-12;
    return (edit.integer(70, 0) & kTypeBits) == kOrdinate && std::fabs(map.matrix.x.y) > kLevel;
}

/// A rotated dimension without an angle measures along X, and mirrored along the image of that.
void stateAngle(std::string& text) {
    if (!subclassPart(text, "AcDbRotatedDimension") || findTag(text, 50)) return;
    setTag(text, 50, "0.0");
}

/// How many live dimensions show each block.
std::unordered_map<Index, int> countPictures(const Store& store) {
    std::unordered_map<Index, int> counts;
    for (Index at = 1; at <= store.count(); ++at) {
        const ObjectBody& body = store.at(at);
        if (body.kind != Kind::Entity || body.erased || !isDimension(body)) continue;
        if (const ObjectBody* picture = pictureOf(body)) ++counts[picture->self];
    }
    return counts;
}

}  // namespace

bool EntityTransform::refuse(const ObjectBody& main, const std::string& why) {
    m_problem = std::string(trimmed(main.type())) + " " + formatHandle(main.handle) +
                " cannot be " + m_done + " here" + why + "; leave it out of the selection";
    return false;
}

bool EntityTransform::check(const ObjectBody& entity) {
    Texts unused;
    return planAll(entity, unused) && (!isDimension(entity) || planPicture(entity, unused));
}

bool EntityTransform::planAll(const ObjectBody& entity, Texts& texts) {
    const Store& store = *entity.store;
    if (!plan(entity, entity, false, texts)) return false;
    for (Index at = store.firstLive(entity.self); at != kNoIndex; at = store.nextLive(store.at(at)))
        if (!plan(store.at(at), entity, false, texts)) return false;
    return true;
}

bool EntityTransform::planPicture(const ObjectBody& dimension, Texts& texts) {
    const ObjectBody* picture = pictureOf(dimension);
    if (picture == nullptr) return true;
    const Store& store = *dimension.store;
    for (Index at = store.firstLive(picture->self); at != kNoIndex;) {
        const ObjectBody& entity = store.at(at);
        if (isDimension(entity)) return refuse(dimension, ": its block shows another dimension");
        if (!plan(entity, dimension, true, texts)) return false;
        for (Index part = store.firstLive(at); part != kNoIndex;
             part = store.nextLive(store.at(part)))
            if (!plan(store.at(part), dimension, true, texts)) return false;
        at = store.nextLive(entity);
    }
    return true;
}

bool EntityTransform::plan(const ObjectBody& body, const ObjectBody& main, bool inPicture,
                           Texts& texts) {
    const TransformRule* rule = transformRule(body);
    if (rule == nullptr) return refuse(main);
    if (m_map.mirrors && rule->mirroring == Mirroring::Refused) return refuse(main);
    std::string text(body.tags());
    if (m_map.mirrors && isDimension(body)) stateAngle(text);
    TagEdit edit(text);
    for (std::size_t at = 0; at < edit.size(); ++at)
        if (edit.code(at) == 101) return refuse(main, ": it holds an embedded object");
    if (m_map.mirrors && isDimension(body) && isSlantedOrdinate(edit, m_map))
        return refuse(main, " at a slanting line: it measures along an axis");
    const ObjectFrame frame(m_map, extrusionOf(body), rule->mirroring == Mirroring::TurnsOver);
    if (trimmed(body.type()) == "HATCH")
        transformHatch(edit, frame);
    else if (inPicture && m_map.mirrors && isCentredText(body))
        transformReadable(edit, frame);
    else
        transformTags(edit, *rule, frame);
    transformExtendedData(edit, m_map);
    if (const auto code = edit.malformed())
        return refuse(main, ": group " + std::to_string(*code) + " is or becomes no finite number");
    texts.emplace_back(body.self, edit.tags());
    return true;
}

void EntityTransform::apply(Store& store, const std::vector<Index>& entities) {
    Texts texts;
    std::unordered_map<Index, int> shown;
    bool counted = false;
    for (const Index index : entities) {
        ObjectBody& entity = store.at(index);
        if (isDimension(entity) && pictureOf(entity) != nullptr) {
            if (!counted) shown = countPictures(store);
            counted = true;
            int& users = shown[pictureOf(entity)->self];
            if (users > 1) {
                --users;
                copyPicture(store, entity);
            }
            planPicture(entity, texts);
        }
        planAll(entity, texts);
    }
    for (auto& [index, text] : texts) {
        ObjectBody& body = store.at(index);
        if (text != body.tags()) body.setTags(std::move(text));
    }
}

}  // namespace host
