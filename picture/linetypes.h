// The dash patterns of a drawing's line types.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/store/store.h"

namespace picture {

/// Lengths along a stroke: a dash, a gap and so on in turns, with an even number of them; a dot is
/// a dash of length 0. None is a stroke without gaps.
using Dashes = std::vector<double>;

/// Looks line types up once each. Names are borrowed from the drawing's text.
class Linetypes {
  public:
    explicit Linetypes(const host::Store& store);

    /// In units of the pattern's definition.
    const Dashes& patternOf(std::string_view name);
    /// What the whole drawing multiplies patterns by.
    double scale() const { return m_scale; }

  private:
    const host::Store& m_store;
    double m_scale = 1;
    std::unordered_map<std::string_view, Dashes> m_patterns;
};

}  // namespace picture
