// What a picture shows of a group beside its members: frame, label and lines in the legend.
#pragma once

#include <string>
#include <vector>

#include "inspection/inspection.h"
#include "picture/svg/label_places.h"

namespace picture {

/// Groups by their number in the inspection's list of the space, from 1.
struct Numbered {
    std::size_t number;
    const inspection::Group* group;
};

/// Places labels and the lines of the legend; one for each picture.
class GroupFrames {
  public:
    /// Where the legend has no room for all groups, those that are not whole come before others.
    GroupFrames(Area legend, LabelPlaces& places, const std::vector<Numbered>& groups);

    /// Opens the group's element.
    static std::string open(const Numbered& one);
    /// The frame around what is shown of it, when that has a place; its lines in the legend; and
    /// closes the element. The label waits for labels().
    std::string close(const Numbered& one, const Area* frame);
    /// All labels, which stand on top of everything.
    const std::string& labels() const { return m_labels; }
    /// Groups that found no place in the legend.
    long unlisted() const { return m_unlisted; }
    double legendBottom() const { return m_legend.bottom; }

  private:
    std::string label(const Numbered& one, const Area& frame);
    std::string legendRow(const Numbered& one);

    struct Row {
        double top, height;
    };

    Area m_legend;
    LabelPlaces& m_places;
    std::size_t m_count;
    /// In the legend, of each group in turn; without height when it is not there.
    std::vector<Row> m_rows;
    std::size_t m_closed = 0;
    long m_unlisted = 0;
    std::string m_labels;
    std::size_t m_labelled = 0;
};

}  // namespace picture
