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
    /// Groups by their number, from 1. Where the legend has no room for all of them, those that are
    /// not whole come before others.
    GroupFrames(Area legend, Area canvas, const std::vector<const inspection::Group*>& groups);

    /// Opens the group's element: its hull around the spots of its members.
    std::string open(std::size_t number, const inspection::Group& group,
                     const std::vector<Spot>& spots);
    /// Legend line, and closes the element. The label waits for labels().
    std::string close(std::size_t number, const inspection::Group& group);
    /// All labels, which stand on top of everything.
    const std::string& labels() const { return m_labels; }
    /// Groups that found no place in the legend.
    long unlisted() const { return m_unlisted; }
    double legendBottom() const { return m_legend.bottom; }

  private:
    std::string label(std::size_t number, const inspection::Group& group);
    std::string legendRow(std::size_t number, const inspection::Group& group);

    struct Row {
        double top, height;
    };

    Area m_legend, m_canvas;
    std::vector<Row> m_rows;  ///< in the legend, of each group; without height when it is not there
    long m_unlisted = 0;
    bool m_hasHull = false;
    Spot m_top{};  ///< of the open group: the highest corner of its hull
    std::string m_labels;
    std::vector<Area> m_taken;  ///< by labels
};

}  // namespace picture
