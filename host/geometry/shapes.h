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
/// Grows a box so that it holds `other` too; nothing holds nothing.
void extend(std::optional<Box>& box, const std::optional<Box>& other);

/// Straight stroke from `a` to `b`; an endless side goes on beyond its point.
struct Line {
    Vec a, b;
    bool endlessA = false;
    bool endlessB = false;
};
/// Elliptic stroke: centre + u cos(t) + v sin(t) for t from `from` to `from + sweep`.
struct Arc {
    Vec centre, u, v;
    double from = 0;
    double sweep = 0;       ///< above 0, at most a full turn
    std::size_t lines = 0;  ///< of the outline, that were drawn before it
};

/// Words that fill an area of four corners: lower left, lower right, upper right, upper left.
struct Writing {
    std::size_t area = 0;  ///< index into Outline::areas
    std::wstring words;    ///< as they are stored, with formatting codes
    double line = 1;       ///< part of the area's height that one line takes
    double aspect = 1;     ///< width of the area by its height before anything stretches it
    double anchor = 0;     ///< part of the width that lies before the alignment point: 0, 0.5 or 1
    double above = 0;      ///< of a paragraph: part of the height above that point: 0, 0.5 or 1
    bool isParagraph = false;
    bool fitted = false;  ///< fills the width whatever the font
};

/// A place in an outline: so many of each stand before it.
struct OutlineMark {
    std::size_t lines = 0, arcs = 0, areas = 0, writings = 0;
};

/// What is drawn of an entity, seen from above. Heights do not count.
struct Outline {
    std::vector<Line> lines;
    std::vector<Arc> arcs;
    std::vector<std::vector<Vec>> areas;  ///< filled, closed by themselves
    std::vector<Writing> writings;        ///< for pictures; what can be hit are the areas

    bool empty() const { return lines.empty() && arcs.empty() && areas.empty(); }
    /// Where what is added from now on begins.
    OutlineMark mark() const { return {lines.size(), arcs.size(), areas.size(), writings.size()}; }
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
