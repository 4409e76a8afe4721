// Maps of moving and mirroring, in the world and in object coordinates.
#include "host/geometry/rigid_map.h"
#include "host/geometry/angles.h"

namespace host {
namespace {

Transform transposed(const Transform& t) {
    return {{t.x.x, t.y.x, t.z.x}, {t.x.y, t.y.y, t.z.y}, {t.x.z, t.y.z, t.z.z}, {}};
}

}  // namespace

RigidMap displacement(const Vec& by) {
    RigidMap made;
    made.matrix.origin = by;
    return made;
}

bool isMirrorLine(const Vec& first, const Vec& second) {
    const double size = flatLength(second - first);
    return size > 0 && std::isfinite(size);
}

RigidMap mirroring(const Vec& first, const Vec& second) {
    const Vec way = second - first;
    const double size = flatLength(way), dx = way.x / size, dy = way.y / size;
    // The double angle of the line, exact for lines along an axis.
    const double c = (dx - dy) * (dx + dy), s = 2 * dx * dy;
    RigidMap made;
    made.mirrors = true;
    made.matrix.x = {c, s, 0};
    made.matrix.y = {s, -c, 0};
    // Twice the way from the world's origin to the line.
    const double away = 2 * (first.x * dy - first.y * dx);
    made.matrix.origin = {away * dy, -away * dx, 0};
    return made;
}

ObjectFrame::ObjectFrame(const RigidMap& map, const Vec& extrusion, bool turnsOver)
    : m_world(map), m_turnsOver(turnsOver && map.mirrors), m_old(objectSystem(extrusion)) {
    const Transform fresh = objectSystem(this->extrusion(extrusion));
    const Transform back = transposed(fresh);
    if (map.mirrors) m_object = back * map.matrix * m_old;
    m_object.origin = back.turn(map.matrix.origin);
    m_axis = map.mirrors ? toDegrees(std::atan2(m_object.x.y, m_object.x.x)) : 0.0;
}

Vec ObjectFrame::extrusion(const Vec& old) const {
    if (!m_world.mirrors) return old;
    return m_world.matrix.turn(old) * (m_turnsOver ? -1 : 1);
}

double ObjectFrame::turnDegrees(double angle) const {
    if (!m_world.mirrors) return angle;
    return wrapped(m_turnsOver ? angle + m_axis : m_axis - angle, 360);
}

double ObjectFrame::turnRadians(double angle) const {
    return m_world.mirrors ? toRadians(turnDegrees(toDegrees(angle))) : angle;
}

}  // namespace host
