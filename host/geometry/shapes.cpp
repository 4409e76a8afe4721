// Distances and box tests of strokes and areas.
#include "host/geometry/shapes.h"
#include "host/geometry/angles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace host {
namespace {

bool holds(const Box& box, const Vec& p) {
    return box.left <= p.x && p.x <= box.right && box.bottom <= p.y && p.y <= box.top;
}

double distance(const Line& line, const Vec& p) {
    const Vec d = line.b - line.a;
    const double square = d.x * d.x + d.y * d.y;
    double t = square > 0 ? ((p.x - line.a.x) * d.x + (p.y - line.a.y) * d.y) / square : 0;
    if (!line.endlessA) t = std::max(t, 0.0);
    if (!line.endlessB) t = std::min(t, 1.0);
    return flatLength(line.a + d * t - p);
}

/// Cuts the parameter range of a line at one side of a box; false when nothing is left.
bool cut(double direction, double room, double& low, double& high) {
    if (direction == 0) return room >= 0;
    const double t = room / direction;
    if (direction > 0)
        high = std::min(high, t);
    else
        low = std::max(low, t);
    return low <= high;
}

bool touches(const Line& line, const Box& box) {
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    const Vec d = line.b - line.a;
    double low = line.endlessA ? -kEndless : 0;
    double high = line.endlessB ? kEndless : 1;
    return cut(d.x, box.right - line.a.x, low, high) && cut(-d.x, line.a.x - box.left, low, high) &&
           cut(d.y, box.top - line.a.y, low, high) && cut(-d.y, line.a.y - box.bottom, low, high);
}

bool onArc(const Arc& arc, double t) {
    const double offset = wrapped(t - arc.from, kTurn);
    return offset <= arc.sweep + 1e-12 || offset >= kTurn - 1e-12;
}

/// Nearest sample, refined by ternary search between its neighbours.
double distance(const Arc& arc, const Vec& p) {
    constexpr int kSamples = 64;
    constexpr int kRefinements = 60;
    const double step = arc.sweep / kSamples;
    const auto at = [&](double t) { return flatLength(arc.at(t) - p); };
    double best = arc.from;
    for (int i = 1; i <= kSamples; ++i) {
        if (at(arc.from + i * step) < at(best)) best = arc.from + i * step;
    }
    double low = std::max(arc.from, best - step);
    double high = std::min(arc.from + arc.sweep, best + step);
    for (int i = 0; i < kRefinements; ++i) {
        const double third = (high - low) / 3;
        if (at(low + third) < at(high - third))
            high -= third;
        else
            low += third;
    }
    return std::min(at(best), at((low + high) / 2));
}

/// Visits the points that decide about a box: the ends and the extremes in X and Y.
template <typename Visit>
void visitExtremes(const Arc& arc, Visit visit) {
    visit(arc.at(arc.from));
    visit(arc.at(arc.from + arc.sweep));
    for (double t : {std::atan2(arc.v.x, arc.u.x), std::atan2(arc.v.y, arc.u.y)}) {
        if (onArc(arc, t)) visit(arc.at(t));
        if (onArc(arc, t + kTurn / 2)) visit(arc.at(t + kTurn / 2));
    }
}

/// Parameters where c + u cos(t) + v sin(t) has a value, at most two.
std::vector<double> crossings(double c, double u, double v, double value) {
    const double radius = std::hypot(u, v);
    if (radius == 0 || std::fabs(value - c) > radius) return {};
    const double middle = std::atan2(v, u);
    const double half = std::acos((value - c) / radius);
    return {middle - half, middle + half};
}

bool touches(const Arc& arc, const Box& box) {
    if (holds(box, arc.at(arc.from)) || holds(box, arc.at(arc.from + arc.sweep))) return true;
    for (double x : {box.left, box.right}) {
        for (double t : crossings(arc.centre.x, arc.u.x, arc.v.x, x)) {
            const double y = arc.at(t).y;
            if (onArc(arc, t) && box.bottom <= y && y <= box.top) return true;
        }
    }
    for (double y : {box.bottom, box.top}) {
        for (double t : crossings(arc.centre.y, arc.u.y, arc.v.y, y)) {
            const double x = arc.at(t).x;
            if (onArc(arc, t) && box.left <= x && x <= box.right) return true;
        }
    }
    return false;
}

/// Both sides of a stroke with a width; its ends are straight.
std::array<Line, 2> sidesOf(const Line& line) {
    const Vec d = line.b - line.a;
    const double size = flatLength(d);
    const Vec side = size > 0 ? leftOf(d) * (line.width / 2 / size) : Vec{};
    return {{{line.a + side, line.b + side}, {line.a - side, line.b - side}}};
}

std::array<Arc, 2> sidesOf(const Arc& arc) {
    const double radius = flatLength(arc.u);
    std::array<Arc, 2> sides{arc, arc};
    if (!(radius > 0)) return sides;
    for (const std::size_t i : {0, 1}) {
        const double factor = std::max(0.0, 1 + (i == 0 ? 1 : -1) * arc.width / 2 / radius);
        sides[i].u = arc.u * factor;
        sides[i].v = arc.v * factor;
    }
    return sides;
}

template <typename Stroke>
bool touchesBand(const Stroke& stroke, const Box& box) {
    if (touches(stroke, box)) return true;
    if (!(stroke.width > 0)) return false;
    const auto sides = sidesOf(stroke);
    if (std::any_of(sides.begin(), sides.end(),
                    [&](const Stroke& side) { return touches(side, box); }))
        return true;
    return distance(stroke, {box.left, box.bottom, 0}) <= stroke.width / 2;
}

bool insideArea(const std::vector<Vec>& area, const Vec& p) {
    bool inside = false;
    for (std::size_t i = 0, j = area.size() - 1; i < area.size(); j = i++) {
        const Vec& a = area[i];
        const Vec& b = area[j];
        if ((a.y > p.y) == (b.y > p.y)) continue;
        if (p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

/// Calls `test` with each edge; true as soon as one passes.
template <typename Test>
bool anyEdge(const std::vector<Vec>& area, Test test) {
    for (std::size_t i = 0, j = area.size() - 1; i < area.size(); j = i++) {
        if (test(Line{area[j], area[i]})) return true;
    }
    return false;
}

}  // namespace

void extend(std::optional<Box>& box, const std::optional<Box>& other) {
    if (!other) return;
    if (!box) box = other;
    *box = {std::min(box->left, other->left), std::min(box->bottom, other->bottom),
            std::max(box->right, other->right), std::max(box->top, other->top)};
}

void extend(std::optional<Box>& box, const Vec& point) {
    extend(box, Box{point.x, point.y, point.x, point.y});
}

Box boundsOf(const std::vector<Vec>& points) {
    std::optional<Box> box;
    for (const Vec& point : points)
        extend(box, point);
    return *box;
}

std::vector<Vec> cornersOf(const Box& box) {
    return {{box.left, box.bottom, 0},
            {box.right, box.bottom, 0},
            {box.right, box.top, 0},
            {box.left, box.top, 0}};
}

bool Outline::near(const Vec& point, double tolerance) const {
    const auto close = [&](const auto& stroke) {
        return distance(stroke, point) <= tolerance + stroke.width / 2;
    };
    return std::any_of(lines.begin(), lines.end(), close) ||
           std::any_of(arcs.begin(), arcs.end(), close) ||
           std::any_of(areas.begin(), areas.end(), [&](const std::vector<Vec>& area) {
               return insideArea(area, point) || anyEdge(area, close);
           });
}

double Outline::distanceFrom(const Vec& point) const {
    double least = std::numeric_limits<double>::infinity();
    const auto measure = [&](const auto& stroke) {
        least = std::min(least, std::max(0.0, distance(stroke, point) - stroke.width / 2));
        return false;
    };
    std::for_each(lines.begin(), lines.end(), measure);
    std::for_each(arcs.begin(), arcs.end(), measure);
    for (const std::vector<Vec>& area : areas)
        anyEdge(area, measure);
    return least;
}

bool Outline::inside(const Box& box) const {
    const auto held = [&](const Vec& point) { return holds(box, point); };
    const auto heldBetween = [&](const Line& line) { return held(line.a) && held(line.b); };
    const auto heldAll = [&](const Arc& arc) {
        bool all = true;
        visitExtremes(arc, [&](const Vec& point) { all = all && held(point); });
        return all;
    };
    const auto heldBand = [&](const auto& stroke, const auto& heldStroke) {
        if (!(stroke.width > 0)) return heldStroke(stroke);
        const auto sides = sidesOf(stroke);
        return std::all_of(sides.begin(), sides.end(), heldStroke);
    };
    const bool all =
        std::all_of(lines.begin(), lines.end(),
                    [&](const Line& line) {
                        return !line.endlessA && !line.endlessB && heldBand(line, heldBetween);
                    }) &&
        std::all_of(arcs.begin(), arcs.end(),
                    [&](const Arc& arc) { return heldBand(arc, heldAll); }) &&
        std::all_of(areas.begin(), areas.end(), [&](const std::vector<Vec>& area) {
            return std::all_of(area.begin(), area.end(), held);
        });
    return all && !empty();
}

bool Outline::touches(const Box& box) const {
    const auto touched = [&](const auto& stroke) { return touchesBand(stroke, box); };
    return std::any_of(lines.begin(), lines.end(), touched) ||
           std::any_of(arcs.begin(), arcs.end(), touched) ||
           std::any_of(areas.begin(), areas.end(), [&](const std::vector<Vec>& area) {
               return insideArea(area, {box.left, box.bottom, 0}) || anyEdge(area, touched);
           });
}

void Outline::cut(const OutlineMark& from) {
    lines.resize(from.lines);
    arcs.resize(from.arcs);
    areas.resize(from.areas);
    writings.resize(from.writings);
    patterns.resize(from.patterns);
}

std::optional<Box> Outline::bounds(const OutlineMark& from) const {
    std::optional<Box> box;
    const auto add = [&](const Vec& point) { extend(box, point); };
    const auto addLine = [&](const Line& line) {
        add(line.a);
        add(line.b);
    };
    const auto addArc = [&](const Arc& arc) {
        if (arc.sweep < kTurn) {
            visitExtremes(arc, add);
            return;
        }
        const Vec reach{std::hypot(arc.u.x, arc.v.x), std::hypot(arc.u.y, arc.v.y), 0};
        add(arc.centre - reach);
        add(arc.centre + reach);
    };
    const auto addBand = [](const auto& stroke, const auto& addStroke) {
        addStroke(stroke);
        if (!(stroke.width > 0)) return;
        for (const auto& side : sidesOf(stroke))
            addStroke(side);
    };
    for (std::size_t i = from.lines; i < lines.size(); ++i)
        addBand(lines[i], addLine);
    for (std::size_t i = from.arcs; i < arcs.size(); ++i)
        addBand(arcs[i], addArc);
    for (std::size_t i = from.areas; i < areas.size(); ++i) {
        for (const Vec& point : areas[i])
            add(point);
    }
    return box;
}

}  // namespace host
