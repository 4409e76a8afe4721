// Paragraph texts where the table of fields does not reach: columns, multi-line attributes, and the
// texts that stay readable.
#include "host/tags/tags.h"
#include "host/transform/transform_tags.h"

namespace host {
namespace {

constexpr int kEmbedded = 101;

/// Direction of a mirrored text that reads from left to right, or upwards.
Vec readable(const Vec& direction) {
    constexpr double kLevel = 1e-9;
    const bool backwards = direction.x < -kLevel || (direction.x < kLevel && direction.y < 0);
    return direction * (backwards ? -1 : 1);
}

/// One embedded object: the tags from behind its marker to the next marker or the extended data.
class Embedded {
  public:
    Embedded(TagEdit& edit, std::size_t marker)
        : m_edit(edit), m_begin(marker + 1), m_end(m_begin) {
        constexpr int kExtendedData = 1000;
        while (m_end < edit.size() && edit.code(m_end) != kEmbedded &&
               edit.code(m_end) < kExtendedData)
            ++m_end;
    }

    /// Columns of a text: attachment, direction (10), position (11), sizes.
    bool mapColumns(const RigidMap& map, bool staysReadable) {
        constexpr int kAttachment = 70;
        const auto direction = find(10), position = find(11);
        if (!begins(kAttachment) || !direction || !position) return false;
        const Vec turned = map.matrix.turn(m_edit.point(*direction));
        m_edit.setPoint(*direction, staysReadable ? readable(turned) : turned);
        m_edit.setPoint(*position, map.matrix.apply(m_edit.point(*position)));
        return true;
    }

    /// The text of a multi-line attribute: position (10), extrusion, direction (11).
    bool mapParagraph(const RigidMap& map) {
        const auto extrusion = find(210), direction = find(11), angle = find(50);
        if (!begins(10) || !extrusion || !direction) return false;
        const ObjectFrame frame(map, m_edit.point(*extrusion), true);
        m_edit.setPoint(m_begin, map.matrix.apply(m_edit.point(m_begin)));
        m_edit.setPoint(*direction, map.matrix.turn(m_edit.point(*direction)));
        m_edit.setPoint(*extrusion, frame.extrusion(m_edit.point(*extrusion)));
        if (angle) m_edit.set(*angle, frame.turnRadians(m_edit.real(*angle)));
        return true;
    }

  private:
    bool begins(int code) const { return m_begin < m_end && m_edit.code(m_begin) == code; }

    std::optional<std::size_t> find(int code) const {
        for (std::size_t at = m_begin; at < m_end; ++at)
            if (m_edit.code(at) == code) return at;
        return std::nullopt;
    }

    TagEdit& m_edit;
    std::size_t m_begin;
    std::size_t m_end;
};

}  // namespace

bool transformEmbedded(TagEdit& edit, std::string_view type, const RigidMap& map,
                       bool staysReadable) {
    const bool attribute = type == "ATTRIB" || type == "ATTDEF";
    bool paragraphNext = attribute;
    for (std::size_t at = 0; at < edit.size(); ++at) {
        if (edit.code(at) != kEmbedded) continue;
        if (!attribute && type != "MTEXT") return false;
        Embedded object(edit, at);
        if (!(paragraphNext ? object.mapParagraph(map) : object.mapColumns(map, staysReadable)))
            return false;
        paragraphNext = false;
    }
    return true;
}

void transformReadable(TagEdit& edit, const ObjectFrame& frame) {
    const Transform& world = frame.world().matrix;
    const auto place = edit.find(10), axis = edit.find(11), angle = edit.find(50);
    if (place) edit.setPoint(*place, world.apply(edit.point(*place)));
    const Vec old = axis ? edit.point(*axis) : paragraphDirection(angle ? edit.real(*angle) : 0.0);
    const Vec direction = readable(world.turn(old));
    if (axis) return edit.setPoint(*axis, direction);
    std::string tags;
    addPointTag(tags, 11, direction.x, direction.y, direction.z);
    addToPart(edit, "AcDbMText", tags);
    if (angle) edit.remove(*angle);
}

}  // namespace host
