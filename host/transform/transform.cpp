// Checking and transforming whole entities: their parts, and the pictures of dimensions.
#include "host/transform/transform.h"

#include <cmath>
#include <unordered_map>

#include "host/clone/dimension_blocks.h"
#include "host/content/references.h"
#include "host/store/store.h"
#include "host/tags/tag_edit.h"
#include "host/tags/tag_values.h"
#include "host/transform/annotation_scales.h"
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

bool isDimension(const ObjectBody& body) {
    return blockPictureOf(body.type()) == BlockPicture::Dimension;
}

/// True for a paragraph text that is centred in both directions.
bool isCentredText(const ObjectBody& body) {
    constexpr int kMiddleCentre = 5;
    return body.type() == "MTEXT" && integerTag(body.tags(), 71, 1) == kMiddleCentre;
}

bool isOrdinate(const ObjectBody& body) {
    constexpr int kTypeBits = 7, kOrdinate = 6;
    return isDimension(body) && (integerTag(body.tags(), 70) & kTypeBits) == kOrdinate;
}

/// True when a map mirrors at a line that is along neither X nor Y.
bool isSlanted(const RigidMap& map) {
    constexpr double kLevel = 1e-12;
    return map.mirrors && std::fabs(map.matrix.x.y) > kLevel;
}

/// A rotated dimension without an angle measures along X, and mirrored along the image of that.
void stateAngle(std::string& text) {
    if (!subclassPart(text, "AcDbRotatedDimension") || findTag(text, 50)) return;
    setTag(text, 50, "0.0");
}

/// True for what has an anonymous block of its own, which shows it.
bool hasPicture(const ObjectBody& body) {
    return blockPictureOf(body.type()) != BlockPicture::None && pictureOf(body) != nullptr;
}

/// How many live dimensions and tables show each block.
std::unordered_map<Index, int> countPictures(const Store& store) {
    std::unordered_map<Index, int> counts;
    for (Index at = 1; at <= store.count(); ++at) {
        const ObjectBody& body = store.at(at);
        if (body.kind != Kind::Entity || body.erased || !hasPicture(body)) continue;
        ++counts[pictureOf(body)->self];
    }
    return counts;
}

/// False when the tags hold what cannot be mapped.
bool mapTags(TagEdit& edit, const TransformRule& rule, const ObjectFrame& frame,
             bool staysReadable) {
    bool isKnown = true;
    if (rule.layout == Layout::Hatch)
        transformHatch(edit, frame);
    else if (rule.layout == Layout::Multileader)
        isKnown = transformMultileader(edit, frame.world());
    else if (staysReadable)
        transformReadable(edit, frame);
    else
        transformTags(edit, rule, frame);
    transformExtendedData(edit, frame.world());
    if (!frame.world().isIdentity()) dropGraphics(edit);
    return isKnown && transformEmbedded(edit, rule.type, frame.world(), staysReadable);
}

}  // namespace

bool EntityTransform::refuse(const ObjectBody& main, const std::string& why) {
    m_problem = std::string(main.type()) + " " + formatHandle(main.handle) + " cannot be " +
                m_done + " here" + why + "; leave it out of the selection";
    return false;
}

bool EntityTransform::check(const ObjectBody& entity) {
    Texts unused;
    return planAll(entity, entity, false, unused) &&
           (!isDimension(entity) || planPicture(entity, unused));
}

bool EntityTransform::planAll(const ObjectBody& entity, const ObjectBody& main, bool inPicture,
                              Texts& texts) {
    if (!planOne(entity, main, inPicture, texts)) return false;
    for (const ObjectBody& part : entity.store->children(entity.self))
        if (!planOne(part, main, inPicture, texts)) return false;
    return true;
}

bool EntityTransform::planPicture(const ObjectBody& dimension, Texts& texts) {
    const ObjectBody* picture = pictureOf(dimension);
    if (picture == nullptr) return true;
    for (const ObjectBody& entity : dimension.store->children(picture->self)) {
        if (isDimension(entity)) return refuse(dimension, ": its block shows another dimension");
        if (!planAll(entity, dimension, true, texts)) return false;
    }
    return true;
}

bool EntityTransform::planOne(const ObjectBody& body, const ObjectBody& main, bool inPicture,
                              Texts& texts) {
    const Vec extrusion = extrusionOf(body);
    if (!plan(body, extrusion, inPicture, main, texts)) return false;
    for (const Index data : scaleData(body))
        if (!plan(body.store->at(data), extrusion, false, main, texts)) return false;
    return true;
}

bool EntityTransform::plan(const ObjectBody& body, const Vec& extrusion, bool inPicture,
                           const ObjectBody& main, Texts& texts) {
    const TransformRule* rule = transformRule(body);
    if (rule == nullptr || (m_map.mirrors && rule->mirroring == Mirroring::Refused))
        return refuse(
            main, isEntityKind(body.kind) ? "" : ": what it keeps for a scale is not known here");
    if (isSlanted(m_map) && rule->mirroring == Mirroring::AlongAxes)
        return refuse(main, " at a slanting line: it always stands upright");
    if (isSlanted(m_map) && isOrdinate(body))
        return refuse(main, " at a slanting line: it measures along an axis");
    std::string text(body.tags());
    if (m_map.mirrors && isDimension(body)) stateAngle(text);
    TagEdit edit(text);
    const ObjectFrame frame(m_map, extrusion, rule->mirroring == Mirroring::TurnsOver);
    if (!mapTags(edit, *rule, frame, inPicture && m_map.mirrors && isCentredText(body)))
        return refuse(main, ": it holds data that are not known here");
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
        if (hasPicture(entity)) {
            if (!counted) shown = countPictures(store);
            counted = true;
            int& users = shown[pictureOf(entity)->self];
            if (users > 1) {
                --users;
                copyPicture(store, entity);
            }
            if (isDimension(entity)) planPicture(entity, texts);
        }
        planAll(entity, entity, false, texts);
    }
    for (auto& [index, text] : texts) {
        ObjectBody& body = store.at(index);
        if (text != body.tags()) body.setTags(text);
    }
}

}  // namespace host
