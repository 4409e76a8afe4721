// From drawing units to the units of a picture, and writing paths in these.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "host/geometry/shapes.h"

namespace picture {

/// Point of the picture: X to the right, Y down.
struct Spot {
    double x = 0, y = 0;
};

/// From drawing units to those of paths: a corner of the box becomes their origin, so that they
/// stay exact far from that of the drawing.
struct View {
    host::Box box{0, 0, 1, 1};  ///< what is shown, in drawing units
    double scale = 1;           ///< units of a path for a drawing unit
    int decimals = 2;           ///< of numbers in paths, from 0 to 15

    Spot spot(const host::Vec& p) const {
        return {(p.x - box.left) * scale, (box.top - p.y) * scale};
    }
};

/// Appends a number with at most so many decimals.
void addNumber(std::string& text, double value, int decimals = 2);
/// Appends "x y".
void addSpot(std::string& text, const Spot& spot, int decimals = 2);

/// Writes the data of one path. Strokes that go on where the last one ended are joined; those too
/// short to be seen are left out unless they are all there is.
class PathData {
  public:
    explicit PathData(const View& view);

    void line(const host::Line& line);
    void arc(const host::Arc& arc);
    void area(const std::vector<host::Vec>& corners);
    /// The data so far; complete, and valid until the next call.
    const std::string& data();
    void clear();
    bool empty() const { return m_text.empty() && !m_hasFirst; }
    std::size_t size() const { return m_text.size(); }

  private:
    struct Grid {  ///< in units of the last decimal
        long long x, y;
        bool operator==(const Grid& other) const { return x == other.x && y == other.y; }
    };
    Grid grid(const host::Vec& point) const;
    void go(const Grid& to);
    void stroke(const Grid& to);
    void pair(long long x, long long y);
    long long steps(double value) const;

    const View& m_view;
    double m_fineness;  ///< steps of the last decimal in a unit
    std::string m_text;
    Grid m_at{0, 0}, m_start{0, 0};
    int m_strokes = 0;   ///< since m_start
    Grid m_first{0, 0};  ///< of a stroke that was left out while there was none
    bool m_hasFirst = false;
};

/// Writes the strokes of an outline between two marks in the order in which they were drawn: what
/// is filled has to be one line around.
void addStrokes(PathData& path, const host::Outline& outline, const host::OutlineMark& from,
                const host::OutlineMark& end);
/// The same, each stroke into the path that `pathOf` gives for its width.
void addStrokesByWidth(const std::function<PathData&(double width)>& pathOf,
                       const host::Outline& outline, const host::OutlineMark& from,
                       const host::OutlineMark& end);

}  // namespace picture
