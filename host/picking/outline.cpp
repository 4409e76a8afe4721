// Outlines of entities, with block references and dimensions resolved.
#include "host/picking/outline.h"
#include "host/geometry/angles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "host/content/references.h"
#include "host/store/store.h"

namespace host {
namespace {

constexpr std::size_t kDeepestNesting = 16;

/// Insertion base of a block.
Vec baseOf(const ObjectBody& record) {
    const BlockParts& parts = record.store->blockParts(record.self);
    if (parts.begin == kNoIndex) return {};
    return pointOf(OwnTags(record.store->at(parts.begin).tags()), 10);
}

/// Place of one element of a reference, before the object coordinate system.
Transform placeOfReference(const OwnTags& tags, std::int64_t column, std::int64_t row) {
    Transform scale;
    scale.x.x = tags.real(41, 1);
    scale.y.y = tags.real(42, 1);
    scale.z.z = tags.real(43, 1);
    Transform turned = rotation(toRadians(tags.real(50, 0)));
    const Vec step{static_cast<double>(column) * tags.real(44, 0),
                   static_cast<double>(row) * tags.real(45, 0), 0};
    turned.origin = pointOf(tags, 10) + turned.turn(step);
    return turned * scale;
}

/// Words that a block repeats: of more than 200 characters an ellipsis stands for the end.
void shortenLines(std::vector<std::wstring>& lines) {
    std::size_t left = 200;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].size() <= left) {
            left -= lines[i].size();
            continue;
        }
        lines[i].resize(left);
        lines[i] += L'\u2026';
        lines.resize(i + 1);
    }
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
    begin(entity, outline, nullptr);
    return outline;
}

void OutlineMaker::addOutline(const ObjectBody& entity, Outline& outline,
                              std::vector<OutlinePart>& parts) {
    begin(entity, outline, &parts);
}

void OutlineMaker::draw(const ObjectBody& entity, const Pen& pen,
                        std::string_view layerOfReference) {
    if (!goesOn()) return;
    if (!m_blocks.empty()) m_spent += costOf(entity);
    const OwnTags tags(entity.tags());
    std::string_view layer = tags.text(8, "0");
    if (layer == "0" && !m_blocks.empty()) layer = layerOfReference;
    const std::string_view type = entity.type();
    const bool isReference = type == "INSERT" || type == "MINSERT";
    // What a block holds on layers of its own stays when the layer of its reference is off.
    if (isReference ? m_layers.frozen(layer) : !m_layers.drawn(layer)) return;
    if (tags.integer(60, 0) == 1) return;
    const Shape shape{m_store, entity, type, tags, pen, !m_blocks.empty()};
    const ObjectBody* picture =
        blockPictureOf(type) != BlockPicture::None ? blockOf(tags) : nullptr;
    if (isReference) {
        drawReference(shape, layer);
    } else if (picture != nullptr && m_store.firstLive(picture->self) != kNoIndex) {
        drawBlock(picture, penOfPicture(shape, *picture), layer);
    } else {
        const OutlineMark from = m_outline->mark();
        if (m_parts != nullptr)
            m_parts->push_back({&entity, type, layer, from, scaleOf(pen.place())});
        const bool hasForm = drawShape(shape);
        if (m_parts != nullptr) m_parts->back().hasForm = hasForm;
        if (shape.insideBlock) {
            for (std::size_t i = from.writings; i < m_outline->writings.size(); ++i)
                shortenLines(m_outline->writings[i].lines);
            m_spent += costOf(*m_outline, from);
        }
        if (type == "MULTILEADER" || type == "MLEADER") {
            const PlacedBlock block = blockOfMultileader(shape);
            drawBlock(block.record, pen.inside(block.place), layer);
        }
    }
}

void OutlineMaker::drawReference(const Shape& shape, std::string_view layer) {
    const OwnTags& tags = shape.tags;
    const ObjectBody* record = blockOf(tags);
    const Pen plane = objectPen(shape);
    const std::int64_t columns = std::max(1, tags.integer(70, 1));
    const std::int64_t rows = std::max(1, tags.integer(71, 1));
    if (record != nullptr) {
        Transform base;
        base.origin = baseOf(*record) * -1;
        // A measure needs the outermost elements alone.
        const std::int64_t down = m_measuring ? std::max<std::int64_t>(1, rows - 1) : 1;
        const std::int64_t across = m_measuring ? std::max<std::int64_t>(1, columns - 1) : 1;
        const double spent = m_spent;
        double drawn = 0;
        for (std::int64_t row = 0; row < rows && goesOn(); row += down) {
            for (std::int64_t column = 0; column < columns && goesOn(); column += across) {
                const Transform place = placeOfReference(tags, column, row);
                drawBlock(record, plane.inside(place * base), layer);
                ++drawn;
                ++m_spent;  // an empty block in a huge array must end too
            }
        }
        if (m_measuring && drawn > 0)
            m_spent = spent + (m_spent - spent) * static_cast<double>(rows * columns) / drawn;
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
    if (m_measuring) {
        measureBlock(*record, pen, layer);
        m_blocks.pop_back();
        return;
    }
    for (const ObjectBody& entity : m_store.children(record->self)) {
        if (!goesOn()) break;
        draw(entity, pen, layer);
    }
    m_blocks.pop_back();
}

}  // namespace host
