// The pen of outlines, and reading points from tags.
#include <cmath>

#include "host/geometry/angles.h"
#include "host/picking/outline.h"

namespace host {

void Pen::line(const Vec& a, const Vec& b) const {
    m_outline.lines.push_back({m_place.apply(a), m_place.apply(b), false, false, m_width});
}

void Pen::endless(const Vec& a, const Vec& direction, bool bothWays) const {
    m_outline.lines.push_back({m_place.apply(a), m_place.apply(a + direction), bothWays, true});
}

void Pen::arc(const Vec& centre, const Vec& u, const Vec& v, double from, double sweep) const {
    from = std::fmod(from, kTurn);
    if (!std::isfinite(from)) from = 0;
    if (!(sweep > 0) || sweep > kTurn) sweep = kTurn;
    m_outline.arcs.push_back({m_place.apply(centre), m_place.turn(u), m_place.turn(v), from, sweep,
                              m_outline.lines.size(), m_width});
}

double scaleOf(const Transform& place) {
    return std::sqrt(std::fabs(place.x.x * place.y.y - place.x.y * place.y.x));
}

Pen Pen::broad(double width) const {
    Pen pen = *this;
    pen.m_width = width * scaleOf(m_place);
    if (!std::isfinite(pen.m_width)) pen.m_width = 0;
    return pen;
}

void Pen::circle(const Vec& centre, double radius) const {
    arc(centre, {radius, 0, 0}, {0, radius, 0}, 0, 0);
}

void Pen::bulge(const Vec& a, const Vec& b, double bulge) const {
    if (std::fabs(bulge) < 1e-9 || std::fabs(bulge) > 1e9) return line(a, b);
    const Vec chord = b - a;
    const double side = (1 - bulge * bulge) / (4 * bulge);
    const Vec centre = (a + b) * 0.5 + leftOf(chord) * side;
    const Vec first = a - centre;
    const double radius = flatLength(first);
    if (radius == 0) return line(a, b);
    const double turn = bulge > 0 ? 1 : -1;  // a clockwise angle counts downwards
    arc(centre, {radius, 0, 0}, {0, radius * turn, 0}, std::atan2(first.y * turn, first.x),
        4 * std::atan(std::fabs(bulge)));
}

void Pen::path(const std::vector<Vec>& points, bool closed) const {
    if (points.size() == 1) point(points[0]);
    for (std::size_t i = 1; i < points.size(); ++i)
        line(points[i - 1], points[i]);
    if (closed && points.size() > 2) line(points.back(), points.front());
}

void Pen::area(const std::vector<Vec>& points) const {
    if (points.empty()) return;
    std::vector<Vec> placed;
    placed.reserve(points.size());
    for (const Vec& p : points)
        placed.push_back(m_place.apply(p));
    m_outline.areas.push_back(std::move(placed));
}

void Pen::frame(const Box& box) const { path(cornersOf(box), true); }

void Pen::write(Writing writing, const Vec& corner, const Vec& along, const Vec& up) const {
    writing.area = m_outline.areas.size();
    const Vec from = m_place.apply(corner), a = m_place.turn(along), b = m_place.turn(up);
    m_outline.areas.push_back({from, from + a, from + a + b, from + b});
    m_outline.writings.push_back(std::move(writing));
}

void Pen::pattern(PatternLines lines) const {
    const Vec along = m_place.turn(lines.along);
    const double scale = flatLength(along);
    lines.base = m_place.apply(lines.base);
    lines.step = m_place.turn(lines.step);
    lines.along = along * (1 / scale);
    for (double& dash : lines.dashes)
        dash *= scale;
    const double sum = lines.base.x + lines.base.y + lines.step.x + lines.step.y + lines.along.x;
    if (std::isfinite(sum)) m_outline.patterns.push_back(std::move(lines));
}

std::vector<Vec> pointsOf(const OwnTags& tags, int code) {
    std::vector<Vec> points;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == code) points.push_back({realOf(tag.value), 0, 0});
        if (points.empty()) continue;
        if (tag.code == code + 10) points.back().y = realOf(tag.value);
        if (tag.code == code + 20) points.back().z = realOf(tag.value);
    }
    return points;
}

std::vector<double> realsOf(const OwnTags& tags, int code) {
    std::vector<double> values;
    for (const Tag& tag : tags.tags()) {
        if (tag.code == code) values.push_back(realOf(tag.value));
    }
    return values;
}

Vec pointOf(const OwnTags& tags, int code, const Vec& standard) {
    const std::vector<Tag>& all = tags.tags();
    auto tag = all.begin();
    while (tag != all.end() && tag->code != code)
        ++tag;
    if (tag == all.end()) return standard;
    // As good as always the coordinates of a point follow each other.
    const auto next = [&](int wanted) {
        if (tag != all.end()) ++tag;
        const bool here = tag != all.end() && tag->code == wanted;
        return here ? realOf(tag->value) : tags.real(wanted, 0);
    };
    const double x = realOf(tag->value), y = next(code + 10);
    return {x, y, next(code + 20)};
}

Pen objectPen(const Shape& shape) {
    if (shape.tags.text(210).empty()) return shape.pen;
    return shape.pen.inside(objectSystem(pointOf(shape.tags, 210)));
}

}  // namespace host
