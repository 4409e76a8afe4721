// Boundaries of hatches.
#include <cmath>

#include "host/geometry/angles.h"
#include "host/geometry/spline.h"
#include "host/picking/outline.h"

namespace host {
namespace {

constexpr int kSpline = 4;

/// What one edge or corner of a boundary collected so far.
struct Edge {
    int type = 0;                    ///< 0 corner of a polyline, 1 line, 2 arc, 3 ellipse, 4 spline
    std::vector<Vec> first, second;  ///< points 10 and 11
    std::vector<double> knots, weights;
    double radius = 0, from = 0, to = 360, bulge = 0;
    int degree = 3;
    bool counterClockwise = true;
};

void take(Edge& edge, const Tag& tag) {
    const double value = realOf(tag.value);
    switch (tag.code) {
        case 10:
            edge.first.push_back({value, 0, 0});
            break;
        case 11:
            edge.second.push_back({value, 0, 0});
            break;
        case 20:
            if (!edge.first.empty()) edge.first.back().y = value;
            break;
        case 21:
            if (!edge.second.empty()) edge.second.back().y = value;
            break;
        case 40:
            edge.radius = value;
            if (edge.type == kSpline) edge.knots.push_back(value);
            break;
        case 42:
            edge.bulge = value;
            if (edge.type == kSpline) edge.weights.push_back(value);
            break;
        case 50:
            edge.from = value;
            break;
        case 51:
            edge.to = value;
            break;
        case 73:
            edge.counterClockwise = value != 0;
            break;
        case 94:
            edge.degree = integerOf(tag.value);
            break;
        default:
            break;
    }
}

void drawEdge(const Pen& pen, const Edge& edge) {
    if (edge.first.empty()) return;
    const Vec& start = edge.first.front();
    if (edge.type == 1 && !edge.second.empty()) return pen.line(start, edge.second.front());
    if (edge.type == kSpline)
        return pen.path(pointsAlong({edge.degree, edge.first, edge.knots, edge.weights}), false);
    if (edge.type != 2 && edge.type != 3) return pen.point(start);
    Vec u{edge.radius, 0, 0};
    double ratio = 1;
    if (edge.type == 3 && !edge.second.empty()) {
        u = edge.second.front();
        ratio = edge.radius;
    }
    const double turn = edge.counterClockwise ? 1 : -1;  // clockwise angles count downwards
    pen.arc(start, u, leftOf(u) * (ratio * turn), toRadians(edge.from),
            toRadians(wrapped(edge.to - edge.from, 360)));
}

/// One boundary path.
struct Path {
    bool isPolyline = false;
    std::vector<Edge> edges;
};

void drawPath(const Pen& pen, const Path& path) {
    if (!path.isPolyline) {
        for (const Edge& edge : path.edges)
            drawEdge(pen, edge);
        return;
    }
    std::vector<Corner> corners;
    for (const Edge& edge : path.edges)
        corners.push_back({edge.first.front(), edge.bulge});
    pen.corners(corners, true);
}

/// Behind the boundary: 78 counts families of lines, 53 opens one.
void drawPattern(const Pen& pen, const OwnTags& tags) {
    std::vector<PatternLines> families;
    bool inPattern = false;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == 78) inPattern = true;
        if (tag.code == 98) break;
        if (!inPattern) continue;
        const double value = realOf(tag.value);
        if (tag.code == 53) {
            const double angle = toRadians(value);
            families.push_back({{}, {std::cos(angle), std::sin(angle), 0}, {}, {}});
        }
        if (families.empty()) continue;
        PatternLines& family = families.back();
        if (tag.code == 43) family.base.x = value;
        if (tag.code == 44) family.base.y = value;
        if (tag.code == 45) family.step.x = value;
        if (tag.code == 46) family.step.y = value;
        if (tag.code == 49) family.dashes.push_back(value);
    }
    for (PatternLines& family : families)
        pen.pattern(std::move(family));
}

}  // namespace

// Tag 91 counts the paths, 92 opens one, 72 opens an edge of it (or says that bulges follow), and
// 97 or 75 end it; what stands before 91 and behind 75 is no boundary.
void drawHatch(const Shape& shape) {
    const Pen pen = objectPen(shape);
    if (shape.tags.integer(70, 0) == 0) drawPattern(pen, shape.tags);
    Path path;
    bool inPaths = false;
    for (const Tag& tag : shape.tags.tags()) {
        if (tag.code == 91) inPaths = true;
        if (!inPaths) continue;
        const int number = integerOf(tag.value);
        if (tag.code == 92 || tag.code == 97 || tag.code == 75) {
            drawPath(pen, path);
            path = {};
            path.isPolyline = tag.code == 92 && (number & 2) != 0;
            if (tag.code == 75) return;
        } else if (tag.code == 72 && !path.isPolyline) {
            path.edges.emplace_back().type = number;
        } else if (tag.code == 10 && path.isPolyline) {
            take(path.edges.emplace_back(), tag);
        } else if (!path.edges.empty()) {
            take(path.edges.back(), tag);
        }
    }
    drawPath(pen, path);
}

}  // namespace host
