// Polylines: corners, bulges, and segments with a width as the areas that they fill.
#include <algorithm>
#include <cmath>

#include "host/geometry/angles.h"
#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

/// A corner and the segment that begins there.
struct Corner {
    Vec point;
    double bulge = 0, startWidth = 0, endWidth = 0;
};

Vec turned(const Vec& v, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    return {v.x * c - v.y * s, v.x * s + v.y * c, v.z};
}

Vec flatUnit(const Vec& v) {
    const double size = std::hypot(v.x, v.y);
    return size > 0 ? Vec{v.x / size, v.y / size, 0} : Vec{1, 0, 0};
}

Vec leftOf(const Vec& direction) { return {-direction.y, direction.x, 0}; }

/// One segment with a width.
struct Broad {
    Vec a, b;
    double bulge, startWidth, endWidth;

    double turn() const { return 4 * std::atan(bulge); }
    Vec startDirection() const { return turned(flatUnit(b - a), -turn() / 2); }
    Vec endDirection() const { return turned(flatUnit(b - a), turn() / 2); }
};

/// From the corner to the left edge, for a width of 2: so that it meets the edge of the neighbour,
/// unless the corner is too sharp for that.
Vec mitre(const Vec& own, const Vec& other) {
    constexpr double kSharp = 0.2;
    const Vec n = leftOf(own), m = leftOf(other);
    const double both = 1 + dot(n, m);
    return both < kSharp ? n : (n + m) * (1 / both);
}

/// `before` and `behind` are the directions in which the neighbours meet it, or its own.
void fill(const Pen& pen, const Broad& segment, const Vec& before, const Vec& behind) {
    constexpr double kStep = kTurn / 48;
    const double turn = segment.turn();
    const int steps = std::max(1, static_cast<int>(std::fabs(turn) / kStep + 0.5));
    const Vec chord = segment.b - segment.a;
    Vec centre;
    if (steps > 1)
        centre = (segment.a + segment.b) * 0.5 +
                 leftOf(chord) * ((1 - segment.bulge * segment.bulge) / (4 * segment.bulge));
    std::vector<Vec> left, right;
    for (int i = 0; i <= steps; ++i) {
        const double t = static_cast<double>(i) / steps;
        const Vec at =
            steps > 1 ? centre + turned(segment.a - centre, turn * t) : segment.a + chord * t;
        Vec side = leftOf(turned(segment.startDirection(), turn * t));
        if (i == 0) side = mitre(segment.startDirection(), before);
        if (i == steps) side = mitre(segment.endDirection(), behind);
        const double half = (segment.startWidth * (1 - t) + segment.endWidth * t) / 2;
        left.push_back(at + side * half);
        right.push_back(at - side * half);
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    pen.area(left);
}

void drawCorners(const Pen& pen, const std::vector<Corner>& corners, bool closed) {
    if (corners.size() == 1) return pen.point(corners[0].point);
    const std::size_t count = corners.size(), segments = closed || count == 0 ? count : count - 1;
    const auto segment = [&](std::size_t i) {
        const Corner& from = corners[i % count];
        return Broad{from.point, corners[(i + 1) % count].point, from.bulge, from.startWidth,
                     from.endWidth};
    };
    for (std::size_t i = 0; i < segments; ++i) {
        const Broad own = segment(i);
        if (!(own.startWidth > 0) && !(own.endWidth > 0)) {
            pen.bulge(own.a, own.b, own.bulge);
            continue;
        }
        Vec before = own.startDirection(), behind = own.endDirection();
        const bool first = i == 0 && !closed, last = i + 1 == segments && !closed;
        if (!first && segment(i + count - 1).endWidth == own.startWidth)
            before = segment(i + count - 1).endDirection();
        if (!last && segment(i + 1).startWidth == own.endWidth)
            behind = segment(i + 1).startDirection();
        fill(pen, own, before, behind);
    }
}

}  // namespace

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
    const bool closed = (shape.tags.integer(70, 0) & 1) != 0 && corners.size() > 1;
    drawCorners(objectPen(shape), corners, closed);
}

void drawPolyline(const Shape& shape) {
    constexpr int kClosed = 1, kSplineFit = 4, k3d = 8, kMeshes = 16 | 64, kFrameVertex = 16;
    const int flags = shape.tags.integer(70, 0);
    const double startWidth = shape.tags.real(40, 0), endWidth = shape.tags.real(41, 0);
    std::vector<Corner> corners;
    for (Index i = shape.store.firstLive(shape.entity.self); i != kNoIndex;) {
        const ObjectBody& vertex = shape.store.at(i);
        const OwnTags tags(vertex.tags());
        const bool frame = (flags & kSplineFit) != 0 && (tags.integer(70, 0) & kFrameVertex) != 0;
        if (!frame && vertex.kind == Kind::Vertex)
            corners.push_back({pointOf(tags, 10), tags.real(42, 0), tags.real(40, startWidth),
                               tags.real(41, endWidth)});
        i = shape.store.nextLive(vertex);
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
    drawCorners(pen, corners, (flags & kClosed) != 0);
}

}  // namespace host
