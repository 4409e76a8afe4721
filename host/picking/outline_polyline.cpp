// Polylines: corners, bulges, and segments with a width as the areas that they fill.
#include <algorithm>
#include <cmath>

#include "host/geometry/angles.h"
#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

Vec turned(const Vec& v, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    return {v.x * c - v.y * s, v.x * s + v.y * c, v.z};
}

Vec flatUnit(const Vec& v) {
    const double size = flatLength(v);
    return size > 0 ? Vec{v.x / size, v.y / size, 0} : Vec{1, 0, 0};
}

/// A segment that grows or shrinks from `from` to `to`, as the area that it fills.
void drawTapered(const Pen& pen, const Corner& from, const Vec& to) {
    constexpr double kStep = kTurn / 48;
    const double turn = 4 * std::atan(from.bulge);
    const int steps = std::max(1, static_cast<int>(std::fabs(turn) / kStep + 0.5));
    const Vec chord = to - from.point;
    Vec centre;
    if (steps > 1)
        centre = (from.point + to) * 0.5 +
                 leftOf(chord) * ((1 - from.bulge * from.bulge) / (4 * from.bulge));
    const Vec start = turned(flatUnit(chord), -turn / 2);
    std::vector<Vec> left, right;
    for (int i = 0; i <= steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        const Vec at =
            steps > 1 ? centre + turned(from.point - centre, turn * t) : from.point + chord * t;
        const Vec side =
            leftOf(turned(start, turn * t)) * ((from.startWidth * (1 - t) + from.endWidth * t) / 2);
        left.push_back(at + side);
        right.push_back(at - side);
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    pen.area(left);
}

}  // namespace

void Pen::corners(const std::vector<Corner>& corners, bool closed) const {
    if (corners.size() == 1) return point(corners[0].point);
    const std::size_t open = closed ? 0 : 1;
    for (std::size_t i = 0; i + open < corners.size(); ++i) {
        const Corner& from = corners[i];
        const Vec& to = corners[(i + 1) % corners.size()].point;
        if (from.startWidth != from.endWidth)
            drawTapered(*this, from, to);
        else if (from.startWidth > 0)
            broad(from.startWidth).bulge(from.point, to, from.bulge);
        else
            bulge(from.point, to, from.bulge);
    }
}

void drawLightPolyline(const Shape& shape) {
    std::vector<Corner> corners;
    const double elevation = shape.tags.real(38, 0), width = shape.tags.real(43, 0);
    for (const Tag& tag : shape.tags.tags()) {
        if (tag.code == 10) corners.push_back({{realOf(tag.value), 0, elevation}, 0, width, width});
        if (corners.empty()) continue;
        if (tag.code == 20) corners.back().point.y = realOf(tag.value);
        if (tag.code == 40 && width == 0) corners.back().startWidth = realOf(tag.value);
        if (tag.code == 41 && width == 0) corners.back().endWidth = realOf(tag.value);
        if (tag.code == 42) corners.back().bulge = realOf(tag.value);
    }
    objectPen(shape).corners(corners, (shape.tags.integer(70, 0) & 1) != 0);
}

void drawPolyline(const Shape& shape) {
    constexpr int kClosed = 1, kSplineFit = 4, k3d = 8, kMeshes = 16 | 64, kFrameVertex = 16;
    const int flags = shape.tags.integer(70, 0);
    const double startWidth = shape.tags.real(40, 0), endWidth = shape.tags.real(41, 0);
    std::vector<Corner> corners;
    for (const ObjectBody& vertex : shape.store.children(shape.entity.self)) {
        const OwnTags tags(vertex.tags());
        const bool frame = (flags & kSplineFit) != 0 && (tags.integer(70, 0) & kFrameVertex) != 0;
        if (!frame && vertex.kind == Kind::Vertex)
            corners.push_back({pointOf(tags, 10), tags.real(42, 0), tags.real(40, startWidth),
                               tags.real(41, endWidth)});
    }
    const bool inSpace = (flags & (k3d | kMeshes)) != 0;
    const Pen pen = inSpace ? shape.pen : objectPen(shape);
    if ((flags & kMeshes) != 0) {
        for (const Corner& corner : corners)
            pen.point(corner.point);
        return;
    }
    if (inSpace) {  // their vertices have no width
        for (Corner& corner : corners)
            corner.startWidth = corner.endWidth = 0;
    }
    pen.corners(corners, (flags & kClosed) != 0);
}

}  // namespace host
