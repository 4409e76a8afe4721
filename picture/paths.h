// From drawing units to the units of a picture, and writing paths in these.
#pragma once

#include <string>
#include <vector>

#include "host/geometry/shapes.h"

namespace picture {

/// Point of the picture: X to the right, Y down, about a pixel each.
struct Spot {
    double x = 0, y = 0;
};

/// Where the drawing lies in the picture.
struct View {
    host::Box box{0, 0, 1, 1};  ///< what is shown, in drawing units
    double scale = 1;           ///< picture units for a drawing unit
    double margin = 0;          ///< around the box, in picture units

    Spot spot(const host::Vec& p) const {
        return {(p.x - box.left) * scale + margin, (box.top - p.y) * scale + margin};
    }
    double width() const { return (box.right - box.left) * scale + 2 * margin; }
    double height() const { return (box.top - box.bottom) * scale + 2 * margin; }
};

/// Appends a number with at most two decimals.
void addNumber(std::string& text, double value);
/// Appends "x y".
void addSpot(std::string& text, const Spot& spot);

/// Writes the data of one path. Strokes that go on where the last one ended are joined; those too
/// short to be seen are left out unless they are all there is.
class PathData {
  public:
    explicit PathData(const View& view) : m_view(view) {}

    void line(const host::Line& line);
    void arc(const host::Arc& arc);
    void area(const std::vector<host::Vec>& corners);
    /// The data so far; complete, and valid until the next call.
    const std::string& data();
    void clear();

  private:
    struct Grid {  ///< hundredths of a picture unit
        long long x, y;
        bool operator==(const Grid& other) const { return x == other.x && y == other.y; }
    };
    Grid grid(const host::Vec& point) const;
    void go(const Grid& to);
    void stroke(const Grid& to);
    void pair(long long x, long long y);

    const View& m_view;
    std::string m_text;
    Grid m_at{0, 0};
    Grid m_first{0, 0};  ///< of a stroke that was left out while there was none
    bool m_hasFirst = false;
};

/// Writes the strokes of an outline between two marks in the order in which they were drawn: what
/// is filled has to be one line around.
void addStrokes(PathData& path, const host::Outline& outline, const host::OutlineMark& from,
                const host::OutlineMark& end);

/// Corners of the smallest convex polygon around the points.
std::vector<Spot> hull(std::vector<Spot> points);

}  // namespace picture
