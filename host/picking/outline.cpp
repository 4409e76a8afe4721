// Outlines of entities, with block references and dimensions resolved.
#include "host/picking/outline.h"
#include "host/geometry/angles.h"

#include <algorithm>
#include <cmath>

#include "host/content/paper_viewport.h"
#include "host/content/references.h"
#include "host/store/store.h"

namespace host {
namespace {

constexpr std::size_t kDeepestNesting = 16;
/// Bounds the time for blocks that multiply themselves through nesting or arrays.
constexpr int kMostEntities = 100000;

/// Insertion base of a block.
Vec baseOf(const ObjectBody& record) {
    const BlockParts& parts = record.store->blockParts(record.self);
    if (parts.begin == kNoIndex) return {};
    return pointOf(OwnTags(record.store->at(parts.begin).tags()), 10);
}

/// Place of one element of a reference, before the object coordinate system.
Transform placeOfReference(const OwnTags& tags, int column, int row) {
    Transform scale;
    scale.x.x = tags.real(41, 1);
    scale.y.y = tags.real(42, 1);
    scale.z.z = tags.real(43, 1);
    Transform turned = rotation(toRadians(tags.real(50, 0)));
    const Vec step{column * tags.real(44, 0), row * tags.real(45, 0), 0};
    turned.origin = pointOf(tags, 10) + turned.turn(step);
    return turned * scale;
}

Pen penOfPicture(const Shape& shape, const ObjectBody& record) {
    if (blockPictureOf(shape.type) == BlockPicture::Dimension) return shape.pen;
    const Vec along = pointOf(shape.tags, 11, {1, 0, 0});
    Transform place = rotation(std::atan2(along.y, along.x));
    place.origin = pointOf(shape.tags, 10) - place.turn(baseOf(record));
    return shape.pen.inside(place);
}

}  // namespace

Outline OutlineMaker::outlineOf(const ObjectBody& entity) {
    Outline outline;
    m_parts = nullptr;
    begin(entity, outline);
    return outline;
}

void OutlineMaker::addOutline(const ObjectBody& entity, Outline& outline,
                              std::vector<OutlinePart>& parts) {
    m_parts = &parts;
    begin(entity, outline);
}

void OutlineMaker::begin(const ObjectBody& entity, Outline& outline) {
    m_outline = &outline;
    // The paper itself has no lines.
    if (isPaperViewport(entity)) return;
    m_budget = kMostEntities;
    m_blocks.clear();
    draw(entity, Pen(outline, {}), "0");
}

void OutlineMaker::draw(const ObjectBody& entity, const Pen& pen,
                        std::string_view layerOfReference) {
    if (--m_budget < 0) return;
    const OwnTags tags(entity.tags());
    std::string_view layer = tags.text(8, "0");
    if (layer == "0" && !m_blocks.empty()) layer = layerOfReference;
    const std::string_view type = entity.type();
    const bool isReference = type == "INSERT" || type == "MINSERT";
    // What a block holds on layers of its own stays when the layer of its reference is off.
    if (isReference ? m_layers.frozen(layer) : !m_layers.drawn(layer)) return;
    if (tags.integer(60, 0) == 1) return;
    const Shape shape{m_store, entity, type, tags, pen};
    const ObjectBody* picture =
        blockPictureOf(type) != BlockPicture::None ? blockOf(tags) : nullptr;
    if (isReference) {
        drawReference(shape, layer);
    } else if (picture != nullptr && m_store.firstLive(picture->self) != kNoIndex) {
        drawBlock(picture, penOfPicture(shape, *picture), layer);
    } else {
        if (m_parts != nullptr) m_parts->push_back({&entity, type, layer, m_outline->mark()});
        const bool hasForm = drawShape(shape, !m_blocks.empty());
        if (m_parts != nullptr) m_parts->back().hasForm = hasForm;
    }
}

void OutlineMaker::drawReference(const Shape& shape, std::string_view layer) {
    const OwnTags& tags = shape.tags;
    const ObjectBody* record = blockOf(tags);
    const Pen plane = objectPen(shape);
    const int columns = std::max(1, tags.integer(70, 1));
    const int rows = std::max(1, tags.integer(71, 1));
    if (record != nullptr) {
        Transform base;
        base.origin = baseOf(*record) * -1;
        for (int row = 0; row < rows && m_budget > 0; ++row) {
            for (int column = 0; column < columns && m_budget > 0; ++column) {
                --m_budget;  // an empty block in a huge array must end too
                const Transform place = placeOfReference(tags, column, row);
                drawBlock(record, plane.inside(place * base), layer);
            }
        }
    }
    for (const ObjectBody& attribute : m_store.children(shape.entity.self))
        draw(attribute, shape.pen, layer);
}

const ObjectBody* OutlineMaker::blockOf(const OwnTags& tags) const {
    return m_store.symbol("BLOCK_RECORD", m_store.decode(tags.text(2)));
}

void OutlineMaker::drawBlock(const ObjectBody* record, const Pen& pen, std::string_view layer) {
    if (record == nullptr || record->erased || m_blocks.size() >= kDeepestNesting) return;
    if (std::find(m_blocks.begin(), m_blocks.end(), record->self) != m_blocks.end()) return;
    m_blocks.push_back(record->self);
    for (const ObjectBody& entity : m_store.children(record->self)) {
        if (m_budget <= 0) break;
        draw(entity, pen, layer);
    }
    m_blocks.pop_back();
}

}  // namespace host
