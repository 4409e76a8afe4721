// Path data in picture units, short and without anything that is too small to be seen.
#include "picture/paths.h"

#include <algorithm>
#include <cmath>

namespace picture {
namespace {

constexpr double kTurn = 6.283185307179586;
constexpr double kFarthest = 1e9;  ///< picture units; farther points are moved there

long long hundredths(double value) {
    if (!std::isfinite(value)) return 0;
    return std::llround(std::clamp(value, -kFarthest, kFarthest) * 100);
}

void addHundredths(std::string& text, long long value) {
    if (value < 0) text += '-';
    const unsigned long long size = static_cast<unsigned long long>(std::llabs(value));
    const unsigned long long whole = size / 100, rest = size % 100;
    char digits[24];
    char* begin = digits + sizeof digits;
    if (rest != 0) {
        if (rest % 10 != 0) *--begin = static_cast<char>('0' + rest % 10);
        *--begin = static_cast<char>('0' + rest / 10);
        *--begin = '.';
    }
    unsigned long long left = whole;
    do {
        *--begin = static_cast<char>('0' + left % 10);
        left /= 10;
    } while (left > 0);
    text.append(begin, static_cast<std::size_t>(digits + sizeof digits - begin));
}

host::Vec pointAt(const host::Arc& arc, double t) {
    if (t == 0) return arc.centre + arc.u;
    return arc.centre + arc.u * std::cos(t) + arc.v * std::sin(t);
}

/// Ends of the part of a line that lies in the box; an endless side reaches its border.
bool clip(const host::Line& line, const host::Box& box, host::Vec& from, host::Vec& to) {
    const host::Vec d = line.b - line.a;
    double low = line.endlessA ? -1e30 : 0, high = line.endlessB ? 1e30 : 1;
    const auto cut = [&](double direction, double room) {
        if (direction == 0) return;
        const double t = room / direction;
        if (direction > 0 && line.endlessB) high = std::min(high, t);
        if (direction < 0 && line.endlessA) low = std::max(low, t);
    };
    cut(d.x, box.right - line.a.x);
    cut(-d.x, line.a.x - box.left);
    cut(d.y, box.top - line.a.y);
    cut(-d.y, line.a.y - box.bottom);
    if (low > high || low < -1e29 || high > 1e29) return false;
    from = line.a + d * low;
    to = line.a + d * high;
    return true;
}

}  // namespace

void addNumber(std::string& text, double value) { addHundredths(text, hundredths(value)); }

void addSpot(std::string& text, const Spot& spot) {
    addNumber(text, spot.x);
    text += ' ';
    addNumber(text, spot.y);
}

PathData::Grid PathData::grid(const host::Vec& point) const {
    const Spot spot = m_view.spot(point);
    return {hundredths(spot.x), hundredths(spot.y)};
}

void PathData::pair(long long x, long long y) {
    addHundredths(m_text, x);
    if (y >= 0) m_text += ' ';
    addHundredths(m_text, y);
}

void PathData::go(const Grid& to) {
    if (!m_text.empty() && m_at == to) return;
    m_text += 'M';
    pair(to.x, to.y);
    m_at = to;
}

void PathData::stroke(const Grid& to) {
    const long long x = to.x - m_at.x, y = to.y - m_at.y;
    m_text += y == 0 ? 'h' : x == 0 ? 'v' : 'l';
    if (x != 0 && y != 0) {
        pair(x, y);
    } else {
        addHundredths(m_text, x + y);
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
    const double rx = std::hypot(major.x, major.y) * m_view.scale;
    const double ry = std::hypot(minor.x, minor.y) * m_view.scale;
    constexpr double kFlat = 0.005;
    const bool whole = arc.sweep > kTurn - 1e-9;
    if (rx < kFlat || ry < kFlat) {  // seen from the side, or a dot
        const host::Vec& longer = rx < ry ? minor : major;
        const bool all = arc.sweep > kTurn / 2;
        return line({all ? arc.centre - longer : pointAt(arc, arc.from),
                     all ? arc.centre + longer : pointAt(arc, arc.from + arc.sweep)});
    }
    const double tilt =
        std::fabs(rx - ry) < kFlat ? 0 : -std::atan2(major.y, major.x) * 360 / kTurn;
    const bool clockwise = u.x * v.y - u.y * v.x < 0;
    const host::Vec start = pointAt(arc, arc.from);
    const Grid first = grid(start);
    const auto reach = [&](const Grid& end, bool large) {
        m_text += 'a';
        pair(hundredths(rx), hundredths(ry));
        m_text += ' ';
        addNumber(m_text, tilt);
        m_text += large ? " 1" : " 0";
        m_text += clockwise ? " 1 " : " 0 ";
        pair(end.x - m_at.x, end.y - m_at.y);
        m_at = end;
    };
    go(first);
    if (!whole) return reach(grid(pointAt(arc, arc.from + arc.sweep)), arc.sweep > kTurn / 2);
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

std::vector<Spot> hull(std::vector<Spot> points) {
    const auto less = [](const Spot& a, const Spot& b) {
        return a.x != b.x ? a.x < b.x : a.y < b.y;
    };
    const auto same = [](const Spot& a, const Spot& b) { return a.x == b.x && a.y == b.y; };
    std::sort(points.begin(), points.end(), less);
    points.erase(std::unique(points.begin(), points.end(), same), points.end());
    if (points.size() < 3) return points;
    std::vector<Spot> corners;
    const auto add = [&](const Spot& p, std::size_t least) {
        const auto turnsRight = [&] {
            const Spot& a = corners[corners.size() - 2];
            const Spot& b = corners.back();
            return (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) <= 0;
        };
        while (corners.size() >= least && turnsRight())
            corners.pop_back();
        corners.push_back(p);
    };
    for (const Spot& point : points)
        add(point, 2);
    const std::size_t lower = corners.size() + 1;
    for (std::size_t i = points.size() - 1; i-- > 0;)
        add(points[i], lower);
    corners.pop_back();
    return corners;
}

}  // namespace picture
