// Path data in picture units, short and without anything that is too small to be seen.
#include "picture/paths.h"

#include <algorithm>
#include <cmath>

#include "host/geometry/angles.h"

namespace picture {
namespace {

using host::kTurn;
constexpr double kPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

double finenessOf(int decimals) { return kPowers[std::clamp(decimals, 0, 15)]; }

/// In steps of the last decimal; what is farther than a picture can hold is moved to its end.
long long stepsOf(double value, double fineness) {
    constexpr double kMostSteps = 1e17;
    if (!std::isfinite(value)) return 0;
    return std::llround(std::clamp(value * fineness, -kMostSteps, kMostSteps));
}

void addSteps(std::string& text, long long value, int decimals) {
    if (value < 0) text += '-';
    unsigned long long left = static_cast<unsigned long long>(std::llabs(value));
    char digits[24];
    char* const end = digits + sizeof digits;
    char* begin = end;
    bool any = false;  // of the decimals: zeros at their end are left out
    for (; decimals > 0; --decimals, left /= 10) {
        any = any || left % 10 != 0;
        if (any) *--begin = static_cast<char>('0' + left % 10);
    }
    if (any) *--begin = '.';
    for (; left > 0 || begin == end; left /= 10)
        *--begin = static_cast<char>('0' + left % 10);
    text.append(begin, static_cast<std::size_t>(end - begin));
}

/// Ends of the part of a line that lies in the box; an endless side reaches its border.
bool clip(const host::Line& line, const host::Box& box, host::Vec& from, host::Vec& to) {
    const host::Vec d = line.b - line.a;
    double low = line.endlessA ? -1e30 : 0, high = line.endlessB ? 1e30 : 1;
    const auto cut = [&](double direction, double room) {
        if (direction == 0) {
            if (room < 0) high = -1e30;  // beside the box
            return;
        }
        const double t = room / direction;
        if (direction > 0 && line.endlessB) high = std::min(high, t);
        if (direction < 0 && line.endlessA) low = std::max(low, t);
    };
    cut(d.x, box.right - line.a.x);
    cut(-d.x, line.a.x - box.left);
    cut(d.y, box.top - line.a.y);
    cut(-d.y, line.a.y - box.bottom);
    if (!(low <= high) || low < -1e29 || high > 1e29) return false;
    from = line.a + d * low;
    to = line.a + d * high;
    return true;
}

}  // namespace

void addNumber(std::string& text, double value, int decimals) {
    addSteps(text, stepsOf(value, finenessOf(decimals)), std::clamp(decimals, 0, 15));
}

void addSpot(std::string& text, const Spot& spot, int decimals) {
    addNumber(text, spot.x, decimals);
    text += ' ';
    addNumber(text, spot.y, decimals);
}

PathData::PathData(const View& view) : m_view(view), m_fineness(finenessOf(view.decimals)) {}

long long PathData::steps(double value) const { return stepsOf(value, m_fineness); }

PathData::Grid PathData::grid(const host::Vec& point) const {
    const Spot spot = m_view.spot(point);
    return {steps(spot.x), steps(spot.y)};
}

void PathData::pair(long long x, long long y) {
    addSteps(m_text, x, m_view.decimals);
    if (y >= 0) m_text += ' ';
    addSteps(m_text, y, m_view.decimals);
}

void PathData::go(const Grid& to) {
    if (!m_text.empty() && m_at == to) return;
    m_text += 'M';
    pair(to.x, to.y);
    m_at = m_start = to;
    m_strokes = 0;
}

void PathData::stroke(const Grid& to) {
    if (++m_strokes > 2 && to == m_start) {  // broad strokes meet there as at other corners
        m_text += 'z';
        m_at = to;
        m_strokes = 0;
        return;
    }
    const long long x = to.x - m_at.x, y = to.y - m_at.y;
    m_text += y == 0 ? 'h' : x == 0 ? 'v' : 'l';
    if (x != 0 && y != 0) {
        pair(x, y);
    } else {
        addSteps(m_text, x + y, m_view.decimals);
    }
    m_at = to;
}

void PathData::line(const host::Line& line) {
    host::Vec from = line.a, to = line.b;
    if ((line.endlessA || line.endlessB) && !clip(line, m_view.box, from, to)) return;
    const Grid a = grid(from), b = grid(to);
    if (a == b) {
        if (!m_hasFirst) m_first = a;
        m_hasFirst = true;
        return;
    }
    go(a);
    stroke(b);
}

void PathData::arc(const host::Arc& arc) {
    // The axes of the ellipse that the two given radii belong to.
    const host::Vec& u = arc.u;
    const host::Vec& v = arc.v;
    const double uu = u.x * u.x + u.y * u.y, vv = v.x * v.x + v.y * v.y;
    const double skew = u.x * v.x + u.y * v.y;
    const bool areAxes = std::fabs(skew) <= 1e-12 * (uu + vv);  // as good as always
    const double turn = areAxes ? 0 : std::atan2(2 * skew, uu - vv) / 2;
    const host::Vec major = areAxes ? u : u * std::cos(turn) + v * std::sin(turn);
    const host::Vec minor = areAxes ? v : v * std::cos(turn) - u * std::sin(turn);
    const double rx = flatLength(major) * m_view.scale;
    const double ry = flatLength(minor) * m_view.scale;
    const double flat = 0.5 / m_fineness;
    const bool whole = arc.sweep > kTurn - 1e-9;
    if (rx < flat || ry < flat) {  // seen from the side, or a dot
        const host::Vec& longer = rx < ry ? minor : major;
        const bool all = arc.sweep > kTurn / 2;
        return line({all ? arc.centre - longer : arc.at(arc.from),
                     all ? arc.centre + longer : arc.at(arc.from + arc.sweep)});
    }
    const double tilt = std::fabs(rx - ry) < flat ? 0 : -std::atan2(major.y, major.x) * 360 / kTurn;
    const bool clockwise = u.x * v.y - u.y * v.x < 0;
    const host::Vec start = arc.at(arc.from);
    const Grid first = grid(start);
    const auto reach = [&](const Grid& end, bool large) {
        m_text += 'a';
        pair(steps(rx), steps(ry));
        m_text += ' ';
        addNumber(m_text, tilt);
        m_text += large ? " 1" : " 0";
        m_text += clockwise ? " 1 " : " 0 ";
        pair(end.x - m_at.x, end.y - m_at.y);
        m_at = end;
    };
    go(first);
    if (!whole) return reach(grid(arc.at(arc.from + arc.sweep)), arc.sweep > kTurn / 2);
    reach(grid(arc.centre * 2 - start), false);
    reach(first, false);
}

void PathData::area(const std::vector<host::Vec>& corners) {
    if (corners.empty()) return;
    const Grid first = grid(corners[0]);
    m_text += 'M';
    pair(first.x, first.y);
    m_at = first;
    for (std::size_t i = 1; i < corners.size(); ++i) {
        const Grid next = grid(corners[i]);
        if (!(next == m_at)) stroke(next);
    }
    m_text += 'z';
    m_at = first;
}

const std::string& PathData::data() {
    if (m_text.empty() && m_hasFirst) {  // a dot, which round ends make visible
        go(m_first);
        m_text += "h0";
    }
    return m_text;
}

void PathData::clear() {
    m_text.clear();
    m_hasFirst = false;
}

void addStrokes(PathData& path, const host::Outline& outline, const host::OutlineMark& from,
                const host::OutlineMark& end) {
    std::size_t line = from.lines;
    for (std::size_t arc = from.arcs; arc < end.arcs; ++arc) {
        for (; line < outline.arcs[arc].lines; ++line)
            path.line(outline.lines[line]);
        path.arc(outline.arcs[arc]);
    }
    for (; line < end.lines; ++line)
        path.line(outline.lines[line]);
}

void addStrokesByWidth(const std::function<PathData&(double width)>& pathOf,
                       const host::Outline& outline, const host::OutlineMark& from,
                       const host::OutlineMark& end) {
    if (from.lines == end.lines && from.arcs == end.arcs) return;
    const double width =
        from.lines != end.lines ? outline.lines[from.lines].width : outline.arcs[from.arcs].width;
    const auto first = [&](auto& list, std::size_t at) {
        return list.begin() + static_cast<std::ptrdiff_t>(at);
    };
    const auto other = [&](const auto& stroke) { return stroke.width != width; };
    const bool uniform =
        std::none_of(first(outline.lines, from.lines), first(outline.lines, end.lines), other) &&
        std::none_of(first(outline.arcs, from.arcs), first(outline.arcs, end.arcs), other);
    if (uniform) return addStrokes(pathOf(width), outline, from, end);
    for (std::size_t i = from.lines; i < end.lines; ++i)
        pathOf(outline.lines[i].width).line(outline.lines[i]);
    for (std::size_t i = from.arcs; i < end.arcs; ++i)
        pathOf(outline.arcs[i].width).arc(outline.arcs[i]);
}

}  // namespace picture
