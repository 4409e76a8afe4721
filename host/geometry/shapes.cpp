// Distances and box tests of strokes and areas.
#include "host/geometry/shapes.h"
#include "host/geometry/angles.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {
namespace {

bool holds(const Box& box, const Vec& p) {
    return box.left <= p.x && p.x <= box.right && box.bottom <= p.y && p.y <= box.top;
}

double flatDistance(const Vec& a, const Vec& b) { return std::hypot(a.x - b.x, a.y - b.y); }

double distance(const Line& line, const Vec& p) {
    const Vec d = line.b - line.a;
    const double square = d.x * d.x + d.y * d.y;
    double t = square > 0 ? ((p.x - line.a.x) * d.x + (p.y - line.a.y) * d.y) / square : 0;
    if (!line.endlessA) t = std::max(t, 0.0);
    if (!line.endlessB) t = std::min(t, 1.0);
    return flatDistance(line.a + d * t, p);
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

Vec pointAt(const Arc& arc, double t) {
    return arc.centre + arc.u * std::cos(t) + arc.v * std::sin(t);
}

bool onArc(const Arc& arc, double t) {
    double offset = std::fmod(t - arc.from, kTurn);
    if (offset < 0) offset += kTurn;
    return offset <= arc.sweep + 1e-12 || offset >= kTurn - 1e-12;
}

/// Nearest sample, refined by ternary search between its neighbours.
double distance(const Arc& arc, const Vec& p) {
    constexpr int kSamples = 64;
    constexpr int kRefinements = 60;
    const double step = arc.sweep / kSamples;
    const auto at = [&](double t) { return flatDistance(pointAt(arc, t), p); };
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

/// Points that decide about a box: the ends and the extremes in X and Y.
std::vector<Vec> extremes(const Arc& arc) {
    std::vector<Vec> points = {pointAt(arc, arc.from), pointAt(arc, arc.from + arc.sweep)};
    for (double t : {std::atan2(arc.v.x, arc.u.x), std::atan2(arc.v.y, arc.u.y)}) {
        if (onArc(arc, t)) points.push_back(pointAt(arc, t));
        if (onArc(arc, t + kTurn / 2)) points.push_back(pointAt(arc, t + kTurn / 2));
    }
    return points;
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
    if (holds(box, pointAt(arc, arc.from)) || holds(box, pointAt(arc, arc.from + arc.sweep)))
        return true;
    for (double x : {box.left, box.right}) {
        for (double t : crossings(arc.centre.x, arc.u.x, arc.v.x, x)) {
            const double y = pointAt(arc, t).y;
            if (onArc(arc, t) && box.bottom <= y && y <= box.top) return true;
        }
    }
    for (double y : {box.bottom, box.top}) {
        for (double t : crossings(arc.centre.y, arc.u.y, arc.v.y, y)) {
            const double x = pointAt(arc, t).x;
            if (onArc(arc, t) && box.left <= x && x <= box.right) return true;
        }
    }
    return false;
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

bool Outline::near(const Vec& point, double tolerance) const {
    const auto close = [&](const auto& stroke) { return distance(stroke, point) <= tolerance; };
    return std::any_of(lines.begin(), lines.end(), close) ||
           std::any_of(arcs.begin(), arcs.end(), close) ||
           std::any_of(areas.begin(), areas.end(), [&](const std::vector<Vec>& area) {
               return insideArea(area, point) || anyEdge(area, close);
           });
}

double Outline::distanceFrom(const Vec& point) const {
    double least = std::numeric_limits<double>::infinity();
    const auto measure = [&](const auto& stroke) {
        least = std::min(least, distance(stroke, point));
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
    const bool all =
        std::all_of(lines.begin(), lines.end(),
                    [&](const Line& line) {
                        return !line.endlessA && !line.endlessB && held(line.a) && held(line.b);
                    }) &&
        std::all_of(arcs.begin(), arcs.end(),
                    [&](const Arc& arc) {
                        const std::vector<Vec> points = extremes(arc);
                        return std::all_of(points.begin(), points.end(), held);
                    }) &&
        std::all_of(areas.begin(), areas.end(), [&](const std::vector<Vec>& area) {
            return std::all_of(area.begin(), area.end(), held);
        });
    return all && !empty();
}

bool Outline::touches(const Box& box) const {
    const auto touched = [&](const auto& stroke) { return host::touches(stroke, box); };
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
}

std::optional<Box> Outline::bounds(const OutlineMark& from) const {
    std::optional<Box> box;
    const auto add = [&](const Vec& p) {
        if (!box) box = Box{p.x, p.y, p.x, p.y};
        *box = {std::min(box->left, p.x), std::min(box->bottom, p.y), std::max(box->right, p.x),
                std::max(box->top, p.y)};
    };
    for (std::size_t i = from.lines; i < lines.size(); ++i) {
        add(lines[i].a);
        add(lines[i].b);
    }
    for (std::size_t i = from.arcs; i < arcs.size(); ++i) {
        if (arcs[i].sweep >= kTurn) {
            const Vec& u = arcs[i].u;
            const Vec& v = arcs[i].v;
            const Vec reach{std::hypot(u.x, v.x), std::hypot(u.y, v.y), 0};
            add(arcs[i].centre - reach);
            add(arcs[i].centre + reach);
            continue;
        }
        for (const Vec& point : extremes(arcs[i]))
            add(point);
    }
    for (std::size_t i = from.areas; i < areas.size(); ++i) {
        for (const Vec& point : areas[i])
            add(point);
    }
    return box;
}

}  // namespace host
