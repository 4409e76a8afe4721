// Plane geometry of outlines: strokes and areas, how near a point is, what a box holds.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/geometry/affine.h"

namespace host {

/// Box in the XY plane.
struct Box {
    double left, bottom, right, top;
};
/// Grows a box so that it holds `other`, or a point, too; nothing holds nothing.
void extend(std::optional<Box>& box, const std::optional<Box>& other);
void extend(std::optional<Box>& box, const Vec& point);
/// Smallest box around points, of which there is at least one.
Box boundsOf(const std::vector<Vec>& points);
/// From the lower left one counter-clockwise.
std::vector<Vec> cornersOf(const Box& box);

/// Straight stroke from `a` to `b`; an endless side goes on beyond its point.
struct Line {
    Vec a, b;
    bool endlessA = false;
    bool endlessB = false;
    double width = 0;  ///< half of it to either side
};
/// Elliptic stroke: centre + u cos(t) + v sin(t) for t from `from` to `from + sweep`.
struct Arc {
    Vec centre, u, v;
    double from = 0;
    double sweep = 0;       ///< above 0, at most a full turn
    std::size_t lines = 0;  ///< of the outline, that were drawn before it
    double width = 0;       ///< half of it to either side

    Vec at(double t) const { return centre + u * std::cos(t) + v * std::sin(t); }
};

/// Distance of lines of words, in heights of one.
inline constexpr double kLineDistance = 5.0 / 3;

/// Words that fill an area of four corners: lower left, lower right, upper right, upper left.
struct Writing {
    std::size_t area = 0;             ///< index into Outline::areas
    std::vector<std::wstring> lines;  ///< without formatting codes
    double line = 1;                  ///< part of the area's height that one line takes
    double aspect = 1;  ///< width of the area by its height before anything stretches it
    double anchor = 0;  ///< part of the width that lies before the alignment point: 0, 0.5 or 1
    double above = 0;   ///< of a paragraph: part of the height above that point: 0, 0.5 or 1
    bool isParagraph = false;
    bool fitted = false;  ///< fills the width whatever the font
};

/// Lines of a hatch pattern: endless and parallel, each a step beside the one before, dashed alike.
struct PatternLines {
    Vec base, along, step;       ///< `along` of length 1
    std::vector<double> dashes;  ///< lengths; below 0 gaps, 0 dots; none: without gaps
};

/// A place in an outline: so many of each stand before it.
struct OutlineMark {
    std::size_t lines = 0, arcs = 0, areas = 0, writings = 0, patterns = 0;
};

/// What is drawn of an entity, seen from above. Heights do not count.
struct Outline {
    std::vector<Line> lines;
    std::vector<Arc> arcs;
    std::vector<std::vector<Vec>> areas;  ///< filled, closed by themselves
    std::vector<Writing> writings;        ///< for pictures; what can be hit are the areas
    std::vector<PatternLines> patterns;   ///< for pictures, inside the strokes of their hatch

    bool empty() const { return lines.empty() && arcs.empty() && areas.empty(); }
    /// Where what is added from now on begins.
    OutlineMark mark() const {
        return {lines.size(), arcs.size(), areas.size(), writings.size(), patterns.size()};
    }
    /// Takes away what was added from there on.
    void cut(const OutlineMark& from);
    /// True when some part is within `tolerance` of the point; also inside an area.
    bool near(const Vec& point, double tolerance) const;
    /// How far the nearest stroke or edge is from the point; infinite without any.
    double distanceFrom(const Vec& point) const;
    /// True when all of it lies in the box.
    bool inside(const Box& box) const;
    /// True when some part lies in the box.
    bool touches(const Box& box) const;
    /// Smallest box around all strokes and areas from a mark on; endless lines count with their
    /// points. Nothing when there are none.
    std::optional<Box> bounds(const OutlineMark& from = {}) const;
};

}  // namespace host
