// Vector arithmetic, composed maps and the arbitrary axis algorithm.
#include "host/geometry/affine.h"
#include "host/geometry/angles.h"

namespace host {

Vec unit(const Vec& v) {
    const double size = std::sqrt(dot(v, v));
    return size > 0 && std::isfinite(size) ? v * (1 / size) : Vec{0, 0, 1};
}

Vec cross(const Vec& a, const Vec& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Transform operator*(const Transform& outer, const Transform& inner) {
    return {outer.turn(inner.x), outer.turn(inner.y), outer.turn(inner.z),
            outer.apply(inner.origin)};
}

Transform objectSystem(const Vec& extrusion) {
    const Vec z = unit(extrusion);
    const bool nearPole = std::fabs(z.x) < 1.0 / 64 && std::fabs(z.y) < 1.0 / 64;
    const Vec x = unit(cross(nearPole ? Vec{0, 1, 0} : Vec{0, 0, 1}, z));
    return {x, cross(z, x), z, {}};
}

Transform rotation(double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    return {{c, s, 0}, {-s, c, 0}, {0, 0, 1}, {}};
}

Vec paragraphDirection(double angle) {
    constexpr double kSlack = 1e-6;
    const double radians = std::fabs(angle) > kTurn + kSlack ? toRadians(angle) : angle;
    return {std::cos(radians), std::sin(radians), 0};
}

}  // namespace host
