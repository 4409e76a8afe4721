// Hatches under a rigid map: the meaning of a tag depends on where in the hatch it stands.
#include "host/geometry/angles.h"
#include "host/tags/tags.h"
#include "host/transform/transform_tags.h"

namespace host {
namespace {

class HatchMapper {
  public:
    HatchMapper(TagEdit& edit, const ObjectFrame& frame) : m_edit(edit), m_frame(frame) {}

    void run() {
        for (std::size_t at = 0; at < m_edit.size(); ++at) {
            if (!m_edit.own(at)) continue;
            m_at = at;
            switchPart();
            map();
        }
    }

  private:
    enum class Part { Head, Polyline, Edges, Line, Arc, Ellipse, Spline, Pattern, Seeds };

    int code() const { return m_edit.code(m_at); }

    long long value() const { return parseInteger(m_edit.value(m_at)).value_or(0); }

    void switchPart() {
        constexpr long long kPolylinePath = 2;
        if (code() == 92)
            m_part = (value() & kPolylinePath) != 0 ? Part::Polyline : Part::Edges;
        else if (code() == 75)
            m_part = Part::Pattern;
        else if (code() == 98)
            m_part = Part::Seeds;
        else if (code() == 72 && m_part != Part::Polyline && m_part != Part::Head)
            m_part = edgeOf(value());
    }

    static Part edgeOf(long long type) {
        constexpr Part kEdges[] = {Part::Line, Part::Arc, Part::Ellipse, Part::Spline};
        return type >= 1 && type <= 4 ? kEdges[type - 1] : Part::Edges;
    }

    void map() {
        switch (m_part) {
            case Part::Head:
                return mapHead();
            case Part::Pattern:
                return mapPattern();
            case Part::Polyline:
                if (code() == 42 && m_frame.reverses()) m_edit.set(m_at, -m_edit.real(m_at));
                [[fallthrough]];
            case Part::Seeds:
                if (code() == 10) mapPoint();
                if (code() == 460) m_edit.set(m_at, m_frame.turnRadians(m_edit.real(m_at)));
                return;
            default:
                return mapEdge();
        }
    }

    void mapHead() {
        if (code() == 10) {
            const Vec from = m_edit.point(m_at);
            m_edit.setPoint(m_at, {from.x, from.y, m_frame.apply({0, 0, from.z}).z});
        } else if (code() == 210) {
            m_edit.setPoint(m_at, m_frame.extrusion(m_edit.point(m_at)));
        }
    }

    void mapPoint() {
        const Vec to = m_frame.apply(m_edit.point(m_at));
        m_edit.setPoint(m_at, {to.x, to.y, 0});
    }

    void mapVector() {
        const Vec to = m_frame.turn(m_edit.point(m_at));
        m_edit.setPoint(m_at, {to.x, to.y, 0});
    }

    void mapEdge() {
        const bool vector =
            code() == 12 || code() == 13 || (code() == 11 && m_part == Part::Ellipse);
        if (vector) return mapVector();
        if (code() == 10 || code() == 11) return mapPoint();
        if (m_part != Part::Arc && m_part != Part::Ellipse) return;
        if (code() == 50) m_begin = m_at;
        if (code() == 51) m_end = m_at;
        if (code() == 73 && m_frame.reverses()) reverse();
    }

    /// Angles of a clockwise edge are stored with the opposite sign, and an elliptic edge has its
    /// angles from the major axis, so that those stay as they are.
    void reverse() {
        const bool counterclockwise = value() != 0;
        m_edit.set(m_at, counterclockwise ? 0 : 1);
        if (m_part == Part::Ellipse || m_begin >= m_at || m_end >= m_at) return;
        const double from = m_edit.real(m_begin), to = m_edit.real(m_end);
        const double axis = m_frame.turnDegrees(0.0);
        const double mapped = wrapped(counterclockwise ? from - axis : from + axis, 360);
        m_edit.set(m_begin, mapped);
        m_edit.set(m_end, mapped + (to - from));
    }

    void mapPattern() {
        if (code() == 52 || code() == 53) m_edit.set(m_at, m_frame.turnDegrees(m_edit.real(m_at)));
        // Two tags make a point here: 43 and 44 the base, 45 and 46 the step to the next line.
        if (code() == 43 || code() == 45) m_first = m_at;
        if (code() != 44 && code() != 46) return;
        if (m_first >= m_at || m_edit.code(m_first) != code() - 1) return;
        const Vec from{m_edit.real(m_first), m_edit.real(m_at), 0};
        const Vec to = code() == 44 ? m_frame.apply(from) : m_frame.turn(from);
        m_edit.set(m_first, to.x);
        m_edit.set(m_at, to.y);
    }

    TagEdit& m_edit;
    const ObjectFrame& m_frame;
    Part m_part = Part::Head;
    std::size_t m_at = 0;
    std::size_t m_begin = static_cast<std::size_t>(-1);
    std::size_t m_end = static_cast<std::size_t>(-1);
    std::size_t m_first = static_cast<std::size_t>(-1);
};

}  // namespace

void transformHatch(TagEdit& edit, const ObjectFrame& frame) { HatchMapper(edit, frame).run(); }

}  // namespace host
