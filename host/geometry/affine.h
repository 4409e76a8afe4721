// Points, vectors and affine maps of drawing space, and object coordinate systems.
#pragma once

#include <cmath>

namespace host {

struct Vec {
    double x = 0, y = 0, z = 0;
};
inline Vec operator+(const Vec& a, const Vec& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec operator-(const Vec& a, const Vec& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec operator*(const Vec& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
inline double dot(const Vec& a, const Vec& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
/// Seen from above: its length, and the same way turned to the left.
inline double flatLength(const Vec& v) { return std::hypot(v.x, v.y); }
inline Vec leftOf(const Vec& v) { return {-v.y, v.x, 0}; }
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
/// Direction of a paragraph text (MTEXT) from its rotation, tag 50. That is documented in
/// radians, but many programs write degrees, so that more than a turn is taken for these.
Vec paragraphDirection(double angle);

}  // namespace host
