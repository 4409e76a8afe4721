// Plane geometry of outlines: strokes and areas, how near a point is, what a box holds.
#pragma once

#include <vector>

namespace host {

struct Vec {
    double x = 0, y = 0, z = 0;
};
inline Vec operator+(const Vec& a, const Vec& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec operator-(const Vec& a, const Vec& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec operator*(const Vec& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
double length(const Vec& v);
/// Of length 1; a zero vector becomes the Z axis.
Vec unit(const Vec& v);
Vec cross(const Vec& a, const Vec& b);

/// Affine map: the images of the axes and of the origin.
struct Transform {
    Vec x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1}, origin;

    Vec turn(const Vec& v) const { return x * v.x + y * v.y + z * v.z; }
    Vec apply(const Vec& p) const { return turn(p) + origin; }
};
/// `inner` first, then `outer`.
Transform operator*(const Transform& outer, const Transform& inner);
/// From the object coordinate system of an extrusion direction to world coordinates, by the
/// arbitrary axis algorithm.
Transform objectSystem(const Vec& extrusion);
/// Rotation about Z, in radians.
Transform rotation(double angle);

/// Box in the XY plane.
struct Box {
    double left, bottom, right, top;
};

/// Straight stroke from `a` to `b`; an endless side goes on beyond its point.
struct Line {
    Vec a, b;
    bool endlessA = false;
    bool endlessB = false;
};
/// Elliptic stroke: centre + u cos(t) + v sin(t) for t from `from` to `from + sweep`.
struct Arc {
    Vec centre, u, v;
    double from = 0;
    double sweep = 0;  ///< above 0, at most a full turn
};

/// What is drawn of an entity, seen from above. Heights do not count.
struct Outline {
    std::vector<Line> lines;
    std::vector<Arc> arcs;
    std::vector<std::vector<Vec>> areas;  ///< filled, closed by themselves

    bool empty() const { return lines.empty() && arcs.empty() && areas.empty(); }
    /// True when some part is within `tolerance` of the point; also inside an area.
    bool near(const Vec& point, double tolerance) const;
    /// True when all of it lies in the box.
    bool inside(const Box& box) const;
    /// True when some part lies in the box.
    bool touches(const Box& box) const;
};

}  // namespace host
