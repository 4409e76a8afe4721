// The form of each kind of entity that stands on its own.
#include "host/content/fields.h"
#include "host/geometry/angles.h"
#include "host/geometry/spline.h"
#include "host/picking/outline.h"

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
    const double sweep = wrapped(shape.tags.real(51, 360) - from, 360);
    objectPen(shape).arc(pointOf(shape.tags, 10), {radius, 0, 0}, {0, radius, 0}, toRadians(from),
                         toRadians(sweep));
}

void drawEllipse(const Shape& shape) {
    const Vec major = pointOf(shape.tags, 11);
    const Vec normal = unit(pointOf(shape.tags, 210, {0, 0, 1}));
    const Vec minor = cross(normal, major) * shape.tags.real(40, 1);
    const double from = shape.tags.real(41, 0);
    shape.pen.arc(pointOf(shape.tags, 10), major, minor, from,
                  wrapped(shape.tags.real(42, kTurn) - from, kTurn));
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

void drawLeader(const Shape& shape) {
    const std::vector<Vec> points = pointsOf(shape.tags, 10);
    const bool curved = shape.tags.integer(72, 0) == 1 && points.size() > 2;
    shape.pen.path(curved ? pointsAlong(splineThrough(points, false)) : points, false);
}

void drawSingleText(const Shape& shape) { drawText(shape, false); }

void drawAttribute(const Shape& shape) {
    const int flags = getField(shape.entity, field::attributeFlags);
    if ((flags & field::kInvisible) == 0) drawText(shape, false);
}

/// A definition shows its tag; inside a block only a constant one shows, and then its value.
void drawDefinition(const Shape& shape) {
    const int flags = getField(shape.entity, field::definitionFlags);
    const bool constant = (flags & field::kConstant) != 0,
               invisible = (flags & field::kInvisible) != 0;
    if (!shape.insideBlock || (constant && !invisible)) drawText(shape, !shape.insideBlock);
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
    {"ATTDEF", drawDefinition},
    {"MLINE", drawMultiline},
    {"TOLERANCE", drawTolerance},
};

}  // namespace

bool drawShape(const Shape& shape) {
    if (shape.type == "SEQEND") return true;
    for (const KindOfShape& kind : kShapes) {
        if (kind.type != shape.type) continue;
        kind.draw(shape);
        return true;
    }
    if (shape.type == "MULTILEADER" || shape.type == "MLEADER") return drawMultileader(shape);
    for (const Vec& point : pointsOf(shape.tags, 10))
        shape.pen.point(point);
    return false;
}

}  // namespace host
