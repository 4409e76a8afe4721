// Where labels find room beside the words of a drawing and beside each other.
#pragma once

#include <vector>

#include "picture/svg/sheet.h"

namespace picture {

/// Remembers in coarse cells what is taken.
class LabelPlaces {
  public:
    explicit LabelPlaces(Area canvas);

    void take(const Area& area);
    /// Takes a place of this size around `frame`, inside the canvas: the first of several that is
    /// free, else that which covers least.
    Area place(double width, double height, const Area& frame);

  private:
    int covered(const Area& area) const;
    Area inside(Area area) const;

    Area m_canvas;
    int m_columns, m_rows;
    std::vector<bool> m_taken;
};

}  // namespace picture
