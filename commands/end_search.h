// Which end marker follows a begin marker, and how many entities stand in between: for all begin
// markers of a drawing, of which the pass that asks erases some as it goes.
//
// From one entity all walks go on alike. So each entity is looked at once and remembered by its
// distance from the end marker that it leads to, or as one behind which no end marker stands. When
// an end marker is erased, what leads to it becomes a part of what follows; a begin marker that is
// erased takes one off the distances across it.
#pragma once

#include <string>
#include <vector>

#include "object_ids.h"
#include "platform.h"

class EndSearch {
  public:
    /// Tags are compared with `endTag` without regard to case.
    explicit EndSearch(const std::wstring& endTag);

    struct Answer {
        AcDbObjectId m_idEnd;    ///< null when the drawing ends first
        std::wstring m_sHandle;  ///< of the end marker
        int m_nBetween;          ///< entities of any kind, other begin markers included
    };
    Answer find(const AcDbObjectId& begin);

    /// Erases the two markers of a pair, as far as the host lets them go.
    void erasePair(const AcDbObjectId& begin, const AcDbObjectId& end);

  private:
    /// Everything that leads to one end. Distances count what was erased since, too.
    struct Way {
        AcDbObjectId m_idEnd;  // null: the drawing ends
        std::wstring m_sHandle;
        int m_nLength;               // distance of the first entity
        std::vector<int> m_aErased;  // distances of the begin markers that are gone, ascending
        std::wstring m_sBehind;      // handle of what followed the end when that was erased
        int m_nJoined;               // the way that this one is a part of then, or -1
        int m_nJoinedAt;             // distance of this one's end there
        bool m_bLost;                // what it was to be joined to is erased as well
    };
    struct Place {
        int m_nWay;
        int m_nDistance;
    };

    /// What a walk came over: an entity, or a way whose end is erased.
    struct Passed {
        AcDbObjectId m_id;
        int m_nWay;
    };

    int wayOf(const AcDbObjectId& first, const std::wstring& handle);
    int goOn(AcDbObjectId& current, std::wstring& text, std::vector<Passed>& passed);
    int addWay(const AcDbObjectId& end, const std::wstring& handle);
    void join(int way, int into);
    Place resolved(const Place& place);

    std::wstring m_sEndTag;
    std::vector<Way> m_aWays;
    IdMap<Place> m_places;
};
