// Moving and mirroring: the map of drawing space, and what it does to object coordinates.
#pragma once

#include "host/geometry/affine.h"

namespace host {

/// A map of drawing space that keeps lengths.
struct RigidMap {
    Transform matrix;
    bool mirrors = false;

    bool isIdentity() const {
        return !mirrors && matrix.origin.x == 0 && matrix.origin.y == 0 && matrix.origin.z == 0;
    }
};

RigidMap displacement(const Vec& by);
/// Mirroring at the upright plane through two points, of which only X and Y count and which must
/// differ in them.
RigidMap mirroring(const Vec& first, const Vec& second);
/// True when two points can tell a mirror line.
bool isMirrorLine(const Vec& first, const Vec& second);

/// What a map does to the object coordinate system of one entity.
class ObjectFrame {
  public:
    /// With `turnsOver` a mirrored entity gets the opposite extrusion, so that its object
    /// coordinates are only turned; without, the extrusion is mirrored and the coordinates too.
    ObjectFrame(const RigidMap& map, const Vec& extrusion, bool turnsOver);

    /// Object coordinates of points and vectors.
    Vec apply(const Vec& point) const { return m_object.apply(point); }
    Vec turn(const Vec& vector) const { return m_object.turn(vector); }
    /// Angle in the object's XY plane.
    double turnDegrees(double angle) const;
    double turnRadians(double angle) const;
    Vec extrusion(const Vec& old) const;
    /// True when the sense of rotation in the object's XY plane changes.
    bool reverses() const { return m_world.mirrors && !m_turnsOver; }
    const RigidMap& world() const { return m_world; }
    /// From the entity's former object coordinates to the world.
    const Transform& system() const { return m_old; }

  private:
    RigidMap m_world;
    bool m_turnsOver;
    Transform m_old;
    Transform m_object;   ///< from old object coordinates to new ones
    double m_axis = 0.0;  ///< angle of the mapped X axis, in degrees
};

}  // namespace host
