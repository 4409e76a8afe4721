// The form of each kind of entity that stands on its own.
#include <algorithm>
#include <cmath>

#include "host/content/fields.h"
#include "host/geometry/angles.h"
#include "host/geometry/spline.h"
#include "host/picking/outline.h"
#include "host/store/store.h"

namespace host {
namespace {

void drawLine(const Shape& shape) {
    shape.pen.line(pointOf(shape.tags, 10), pointOf(shape.tags, 11));
}

void drawPoint(const Shape& shape) { shape.pen.point(pointOf(shape.tags, 10)); }

void drawCircle(const Shape& shape) {
    objectPen(shape).circle(pointOf(shape.tags, 10), shape.tags.real(40, 0));
}

void drawArc(const Shape& shape) {
    const double radius = shape.tags.real(40, 0);
    const double from = shape.tags.real(50, 0);
    double sweep = std::fmod(shape.tags.real(51, 360) - from, 360);
    if (sweep <= 0) sweep += 360;
    objectPen(shape).arc(pointOf(shape.tags, 10), {radius, 0, 0}, {0, radius, 0}, toRadians(from),
                         toRadians(sweep));
}

void drawEllipse(const Shape& shape) {
    const Vec major = pointOf(shape.tags, 11);
    const Vec normal = unit(pointOf(shape.tags, 210, {0, 0, 1}));
    const Vec minor = cross(normal, major) * shape.tags.real(40, 1);
    const double from = shape.tags.real(41, 0);
    double sweep = std::fmod(shape.tags.real(42, kTurn) - from, kTurn);
    if (sweep < 0) sweep += kTurn;
    shape.pen.arc(pointOf(shape.tags, 10), major, minor, from, sweep);
}

void drawLightPolyline(const Shape& shape) {
    std::vector<Corner> corners;
    const double elevation = shape.tags.real(38, 0);
    for (const Tag& tag : shape.tags.tags()) {
        if (tag.code == 10) corners.push_back({{realOf(tag.value), 0, elevation}});
        if (corners.empty()) continue;
        if (tag.code == 20) corners.back().point.y = realOf(tag.value);
        if (tag.code == 42) corners.back().bulge = realOf(tag.value);
    }
    objectPen(shape).corners(corners, (shape.tags.integer(70, 0) & 1) != 0);
}

std::vector<double> realsOf(const OwnTags& tags, int code) {
    std::vector<double> values;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == code) values.push_back(realOf(tag.value));
    }
    return values;
}

/// By its control points; by its fit points where these alone are there.
void drawSpline(const Shape& shape) {
    const OwnTags& tags = shape.tags;
    const Spline spline{tags.integer(71, 3), pointsOf(tags, 10), realsOf(tags, 40),
                        realsOf(tags, 41)};
    const bool closed = (tags.integer(70, 0) & 1) != 0;
    const std::vector<Vec> fit = isCurve(spline) ? std::vector<Vec>() : pointsOf(tags, 11);
    const bool through = fit.size() > 1;
    shape.pen.path(pointsAlong(through ? splineThrough(fit, closed) : spline), closed);
}

/// SOLID and TRACE name the third and fourth corner crosswise.
void drawSolid(const Shape& shape) {
    const Vec third = pointOf(shape.tags, 12);
    objectPen(shape).area(
        {pointOf(shape.tags, 10), pointOf(shape.tags, 11), pointOf(shape.tags, 13, third), third});
}

void drawFace(const Shape& shape) {
    const Vec third = pointOf(shape.tags, 12);
    shape.pen.path(
        {pointOf(shape.tags, 10), pointOf(shape.tags, 11), third, pointOf(shape.tags, 13, third)},
        true);
}

void drawRay(const Shape& shape) {
    shape.pen.endless(pointOf(shape.tags, 10), pointOf(shape.tags, 11), false);
}

void drawConstructionLine(const Shape& shape) {
    shape.pen.endless(pointOf(shape.tags, 10), pointOf(shape.tags, 11), true);
}

void drawLeader(const Shape& shape) { shape.pen.path(pointsOf(shape.tags, 10), false); }

void drawSingleText(const Shape& shape) { drawText(shape, false); }

void drawAttribute(const Shape& shape) {
    const int flags = getField(shape.entity, field::attributeFlags);
    if ((flags & field::kInvisible) == 0) drawText(shape, false);
}

struct KindOfShape {
    std::string_view type;
    void (*draw)(const Shape&);
};

constexpr KindOfShape kShapes[] = {
    {"LINE", drawLine},
    {"POINT", drawPoint},
    {"CIRCLE", drawCircle},
    {"ARC", drawArc},
    {"ELLIPSE", drawEllipse},
    {"LWPOLYLINE", drawLightPolyline},
    {"POLYLINE", drawPolyline},
    {"SPLINE", drawSpline},
    {"SOLID", drawSolid},
    {"TRACE", drawSolid},
    {"3DFACE", drawFace},
    {"RAY", drawRay},
    {"XLINE", drawConstructionLine},
    {"LEADER", drawLeader},
    {"HATCH", drawHatch},
    {"TEXT", drawSingleText},
    {"MTEXT", drawMText},
    {"ATTRIB", drawAttribute},
};

/// A definition shows its tag; inside a block only a constant one shows, and then its value.
void drawDefinition(const Shape& shape, bool insideBlock) {
    const int flags = getField(shape.entity, field::definitionFlags);
    const bool constant = (flags & field::kConstant) != 0,
               invisible = (flags & field::kInvisible) != 0;
    if (!insideBlock || (constant && !invisible)) drawText(shape, !insideBlock);
}

}  // namespace

bool drawShape(const Shape& shape, bool insideBlock) {
    if (shape.type == "SEQEND") return true;
    for (const KindOfShape& kind : kShapes) {
        if (kind.type != shape.type) continue;
        kind.draw(shape);
        return true;
    }
    if (shape.type == "ATTDEF") {
        drawDefinition(shape, insideBlock);
        return true;
    }
    for (const Vec& point : pointsOf(shape.tags, 10))
        shape.pen.point(point);
    return false;
}

void drawPolyline(const Shape& shape) {
    constexpr int kClosed = 1, kSplineFit = 4, k3d = 8, kMeshes = 16 | 64, kFrameVertex = 16;
    const int flags = shape.tags.integer(70, 0);
    std::vector<Corner> corners;
    for (const ObjectBody& vertex : shape.store.children(shape.entity.self)) {
        const OwnTags tags(vertex.tags());
        const bool frame = (flags & kSplineFit) != 0 && (tags.integer(70, 0) & kFrameVertex) != 0;
        if (!frame && vertex.kind == Kind::Vertex)
            corners.push_back({pointOf(tags, 10), tags.real(42, 0)});
    }
    const Pen pen = (flags & (k3d | kMeshes)) != 0 ? shape.pen : objectPen(shape);
    if ((flags & kMeshes) == 0) return pen.corners(corners, (flags & kClosed) != 0);
    for (const Corner& corner : corners)
        pen.point(corner.point);
}

}  // namespace host
