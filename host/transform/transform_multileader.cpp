// Multileaders under a rigid map: what a tag means depends on the braces in which it stands.
#include <vector>

#include "host/content/multileader_parts.h"
#include "host/transform/transform_tags.h"

namespace host {
namespace {

/// The text and the block are turned over where mirrored, so that their coordinates stay as they
/// are.
class LeaderMapper {
  public:
    LeaderMapper(TagEdit& edit, const RigidMap& map) : m_edit(edit), m_map(map) {}

    bool run() {
        for (m_at = 0; m_at < m_edit.size(); ++m_at)
            if (m_edit.own(m_at) && !switchPart()) mapTag();
        return m_any && m_part == LeaderPart::Outside && mapMatrix();
    }

  private:
    bool switchPart() {
        const auto part = partBehind(m_part, m_edit.code(m_at), m_edit.value(m_at));
        m_part = part.value_or(m_part);
        m_any = m_any || part;
        return part.has_value();
    }

    void mapTag() {
        const int code = m_edit.code(m_at);
        if (m_part == LeaderPart::Context) return mapContent(code);
        if (m_part == LeaderPart::Leader && code == 11) return mapVector();  // of the dogleg
        const bool breakEnd = code == 13 && m_part == LeaderPart::Leader;
        if (m_part != LeaderPart::Outside && (code == 10 || code == 11 || code == 12 || breakEnd))
            mapPoint();
    }

    void mapContent(int code) {
        switch (code) {
            case 10:   // base
            case 12:   // text
            case 15:   // block
            case 110:  // plane
                return mapPoint();
            case 13:  // of the text
            case 111:
            case 112:
                return mapVector();
            case 11:
                return mapNormal(m_textNormal);
            case 14:
                return mapNormal(m_blockNormal);
            case 42:
                return mapAngle(m_textNormal);
            case 46:
                return mapAngle(m_blockNormal);
            case 47:
                return m_matrix.push_back(m_at);
            default:
                return;
        }
    }

    void mapPoint() { m_edit.setPoint(m_at, m_map.matrix.apply(m_edit.point(m_at))); }

    void mapVector() { m_edit.setPoint(m_at, m_map.matrix.turn(m_edit.point(m_at))); }

    void mapNormal(Vec& normal) {
        normal = m_edit.point(m_at);
        m_edit.setPoint(m_at, ObjectFrame(m_map, normal, true).extrusion(normal));
    }

    void mapAngle(const Vec& normal) {
        m_edit.set(m_at, ObjectFrame(m_map, normal, true).turnRadians(m_edit.real(m_at)));
    }

    /// From the block to the world, row by row; the last row is 0 0 0 1.
    bool mapMatrix() {
        constexpr std::size_t kColumns = 4, kSize = 16;
        if (m_matrix.empty()) return true;
        if (m_matrix.size() != kSize) return false;
        const auto element = [&](std::size_t row, std::size_t column) {
            return m_edit.real(m_matrix[row * kColumns + column]);
        };
        for (std::size_t column = 0; column < kColumns; ++column)
            if (element(3, column) != (column == 3 ? 1.0 : 0.0)) return false;
        const auto columnAt = [&](std::size_t column) {
            return Vec{element(0, column), element(1, column), element(2, column)};
        };
        const Transform made =
            m_map.matrix * Transform{columnAt(0), columnAt(1), columnAt(2), columnAt(3)};
        const Vec columns[kColumns] = {made.x, made.y, made.z * (m_map.mirrors ? -1 : 1),
                                       made.origin};
        for (std::size_t i = 0; i < kColumns; ++i) {
            m_edit.set(m_matrix[i], columns[i].x);
            m_edit.set(m_matrix[kColumns + i], columns[i].y);
            m_edit.set(m_matrix[2 * kColumns + i], columns[i].z);
        }
        return true;
    }

    TagEdit& m_edit;
    const RigidMap& m_map;
    LeaderPart m_part = LeaderPart::Outside;
    bool m_any = false;  ///< there is context data
    std::size_t m_at = 0;
    Vec m_textNormal{0, 0, 1};
    Vec m_blockNormal{0, 0, 1};
    std::vector<std::size_t> m_matrix;
};

}  // namespace

bool transformMultileader(TagEdit& edit, const RigidMap& map) {
    return LeaderMapper(edit, map).run();
}

}  // namespace host
