// What a picture shows of a group beside its members: hull, label and line in the legend.
#pragma once

#include <string>
#include <vector>

#include "inspection/inspection.h"
#include "picture/paths.h"

namespace picture {

/// Box in picture units.
struct Area {
    double left, top, right, bottom;
};

/// Places hulls, labels and the lines of the legend; one for each picture.
class GroupFrames {
  public:
    /// The legend begins at `x` and `y` and ends above `bottom`.
    GroupFrames(Area legend, Area canvas, std::size_t groups)
        : m_legend(legend), m_canvas(canvas), m_groups(groups), m_row(legend.top) {}

    /// Opens the group's element: its hull around the spots of its members.
    std::string open(std::size_t number, const inspection::Group& group,
                     const std::vector<Spot>& spots);
    /// Legend line, and closes the element. The label waits for labels().
    std::string close(std::size_t number, const inspection::Group& group);
    /// All labels, which stand on top of everything.
    const std::string& labels() const { return m_labels; }
    /// Groups that found no place in the legend.
    long unlisted() const { return m_unlisted; }

  private:
    std::string label(std::size_t number, const inspection::Group& group);
    std::string legendRow(std::size_t number, const inspection::Group& group);

    Area m_legend, m_canvas;
    std::size_t m_groups;
    double m_row;
    long m_unlisted = 0;
    bool m_hasHull = false;
    Spot m_top{};  ///< of the open group: the highest corner of its hull
    std::string m_labels;
    std::vector<Area> m_taken;  ///< by labels
};

}  // namespace picture
