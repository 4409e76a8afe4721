// The entities of one space in drawing order, with what makes some of them markers.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "arxHeaders.h"

namespace inspection {

/// The prefix and the names that follow from it.
struct Names {
    explicit Names(std::wstring prefix);
    std::wstring prefix, begin, end, recordKey, recordText;
};

/// What a block reference has of a marker. The module knows markers by their block where it selects
/// them, and by the tag of their first attribute where it walks.
struct Marker {
    std::size_t place = 0;  ///< index into Reading::places
    std::string handle;
    bool selectedBegin = false;  ///< its block is the begin marker's, in any case
    bool selected = false;       ///< its block's name has the form of a marker's
    bool beginTag = false;       ///< its first tag is the begin marker's, exactly
    bool endTag = false;         ///< its first tag is the end marker's, in any case
    bool exactTag = false;       ///< its first tag is one of the two, exactly
    bool sound = false;          ///< its attributes are those of a begin or end marker
    bool locked = false;         ///< its layer does not let it be changed
    std::wstring text;           ///< of the first attribute
    std::wstring count;          ///< of a begin marker's second attribute

    bool begins() const { return selectedBegin || beginTag; }
};

/// A main entity.
struct Place {
    AcDbObjectId id;
    bool hasRecord = false;
};

struct Reading {
    std::vector<Place> places;
    std::vector<Marker> markers;                        ///< in drawing order
    std::vector<std::pair<std::size_t, bool>> foreign;  ///< places of the other prefix's markers;
                                                        ///< true for a begin marker
};

/// Reads a space of the working drawing.
Reading readSpace(AcDbObjectId block, const Names& names, const Names& otherNames);

/// Counts what a walk over members meets, each stretch between two markers once.
class Steps {
  public:
    /// The reading has to live longer, and the drawing has to stay as it is.
    explicit Steps(const Reading& reading)
        : m_reading(reading), m_behind(reading.markers.size(), {-1, 0}) {}

    /// Entities that stand between a marker, by its index, and the next one or the end of the
    /// space: each counts with what it owns unless the walk steps over that.
    long behind(std::size_t marker) { return stretch(marker).plain; }
    /// Entities of the marker itself that the walk does not step over.
    long own(std::size_t marker) { return stretch(marker).own; }

  private:
    struct Stretch {
        long plain, own;
    };
    const Stretch& stretch(std::size_t marker);

    const Reading& m_reading;
    std::vector<Stretch> m_behind;
};

/// The object with a handle, erased or not, as the module resolves the text; null when unknown.
AcDbObjectId resolve(const std::wstring& handleText);
/// A count as a walk reads it, with blanks and a sign in front; nothing for what is no number,
/// which the walk takes for 0.
std::optional<int> countOf(const std::wstring& text);
/// A count as the repair reads it: the digits at its very start.
int digitsOf(const std::wstring& text);

}  // namespace inspection
