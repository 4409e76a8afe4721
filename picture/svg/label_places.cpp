// Tries places above, below and beside, from near to far.
#include "picture/svg/label_places.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace picture {
namespace {

constexpr double kCell = 4;  // pixels

int cellsIn(double size) { return std::max(1, static_cast<int>(std::ceil(size / kCell))); }

}  // namespace

LabelPlaces::LabelPlaces(Area canvas)
    : m_canvas(canvas),
      m_columns(cellsIn(canvas.right - canvas.left)),
      m_rows(cellsIn(canvas.bottom - canvas.top)),
      m_taken(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), false) {}

template <typename Visit>
static void visitCells(const Area& canvas, int columns, int rows, const Area& area, Visit visit) {
    const auto cell = [](double offset, int count) {
        return static_cast<int>(std::clamp(std::floor(offset / kCell), 0.0, count - 1.0));
    };
    if (area.right < canvas.left || area.left > canvas.right || area.bottom < canvas.top ||
        area.top > canvas.bottom)
        return;
    for (int y = cell(area.top - canvas.top, rows); y <= cell(area.bottom - canvas.top, rows); ++y)
        for (int x = cell(area.left - canvas.left, columns);
             x <= cell(area.right - canvas.left, columns); ++x)
            visit(static_cast<std::size_t>(y) * static_cast<std::size_t>(columns) +
                  static_cast<std::size_t>(x));
}

void LabelPlaces::take(const Area& area) {
    visitCells(m_canvas, m_columns, m_rows, area, [&](std::size_t cell) { m_taken[cell] = true; });
}

int LabelPlaces::covered(const Area& area) const {
    int count = 0;
    visitCells(m_canvas, m_columns, m_rows, area,
               [&](std::size_t cell) { count += m_taken[cell] ? 1 : 0; });
    return count;
}

Area LabelPlaces::inside(Area area) const {
    const double width = area.right - area.left, height = area.bottom - area.top;
    area.left = std::max(m_canvas.left, std::min(area.left, m_canvas.right - width));
    area.top = std::max(m_canvas.top, std::min(area.top, m_canvas.bottom - height));
    return {area.left, area.top, area.left + width, area.top + height};
}

Area LabelPlaces::place(double width, double height, const Area& frame) {
    constexpr double kGap = 2;
    constexpr int kRounds = 6;
    const double middle = (frame.left + frame.right - width) / 2;
    const double beside = (frame.top + frame.bottom - height) / 2;
    Area best{};
    int least = std::numeric_limits<int>::max();
    for (int round = 0; round < kRounds && least > 0; ++round) {
        const double away = kGap + round * (height + kGap);
        const Spot corners[] = {{middle, frame.top - away - height},
                                {frame.left, frame.top - away - height},
                                {frame.right - width, frame.top - away - height},
                                {middle, frame.bottom + away},
                                {frame.left, frame.bottom + away},
                                {frame.right - width, frame.bottom + away},
                                {frame.left - away - width, beside},
                                {frame.right + away, beside},
                                {middle, frame.top + away}};
        for (const Spot& corner : corners) {
            const Area area = inside({corner.x, corner.y, corner.x + width, corner.y + height});
            const int count = covered(area);
            if (count >= least) continue;
            least = count;
            best = area;
        }
    }
    take(best);
    return best;
}

}  // namespace picture
