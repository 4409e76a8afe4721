// The membership walk for many starts, in a drawing that stays as it is between them.
//
// A walk from a start goes over the members behind it to the first marker, jumps from that end
// marker to the begin marker that it names, and goes on from there until it meets its start. Two
// things make the answers of many walks out of few:
//
// - Up to the first marker all starts of one stretch walk alike: from one of them the walk comes
//   over the others, and over the same members behind them, to the same marker.
// - Behind that marker the walk does not depend on where it began, only on where it stops, namely
// at
//   its start. What it meets on the way from one entity to the next is the entity's own; only at
//   the jump may the text by which the start is recognised be written in another way.
//
// So what stands in front of an end marker, or of the end of the drawing, is kept as one line, each
// entity looked at once, with the number of members on the way and the begin markers and counts met
// at each place. A walk is then two stretches of lines, whatever the damage: members are a
// difference, its begin marker and its count the last ones of the stretch.
//
// A line is true as long as its end and the begin markers in it stand. Members stay what they are
// when their record goes; so only markers that are erased have to be told.
#pragma once

#include <vector>

#include "group_walk.h"
#include "object_ids.h"
#include "platform.h"

/// Answers as verifyGroup does, for many starts, at the cost of one look at each entity and one
/// look-up for each start.
class GroupSearch {
  public:
    enum Answer {
        kNone,   ///< there is no group
        kKnown,  ///< every id of the group but the start's was given by earlier answers
        kNew
    };

    GroupSearch();

    /// The group of `start`, announced as verifyGroup announces it. For kNew `group` receives, in
    /// the order of verifyGroup, what no earlier answer gave, and always both markers and the
    /// start; otherwise it stays as it was.
    Answer find(const AcDbObjectId& start, AcDbObjectIdArray& group);
    /// The same with the whole group each time; false when there is none.
    bool findWhole(const AcDbObjectId& start, AcDbObjectIdArray& group);
    /// Tells that this marker is erased now.
    void forget(const AcDbObjectId& marker);

  private:
    /// An entity of a line; `m_nMembers` of those from it down to the end are members.
    struct Node {
        AcDbObjectId m_id;
        bool m_bMember;
        int m_nMembers;
    };
    /// What a begin marker in a line adds to a walk: itself, or the count that it holds.
    template <typename T>
    struct Met {
        int m_nIndex;
        T m_value;
    };
    enum End {
        kEndMarker,
        kBeginMarker,  ///< the first marker of a stretch: no walk behind its jump ends there
        kEndOfDrawing,
        kOtherLine  ///< it runs into another line, behind that one's first entity
    };
    struct Line {
        explicit Line(End end);

        std::vector<Node> m_aNodes;  ///< backwards: the first stands in front of the end
        std::vector<Met<AcDbObjectId> > m_aBegins;
        std::vector<Met<int> > m_aCounts;
        End m_end;
        WalkState m_atEnd;  ///< of a walk that meets the end marker as its first
        int m_nOtherLine;
        int m_nOtherIndex;
        int m_nGiven;  ///< so many of the nodes were given
        AcDbObjectId m_idGivenBegin;
        bool m_bStale;
    };
    /// Index -1 is the marker at the line's end.
    struct Place {
        int m_nLine;
        int m_nIndex;
    };
    /// What a walk came over of a line, from the higher index to the lower one.
    struct Stretch {
        int m_nLine;
        int m_nFrom;
        int m_nTo;
    };
    /// What a walk came to.
    struct Path {
        explicit Path(const AcDbObjectId& start);

        AcDbObjectId m_idStart;
        AcDbObjectId m_idBegin;
        int m_nEndLine;  ///< the line of its end marker; -1 without one
        bool m_bFound;
        int m_nMembers;
        int m_nCount;
        std::vector<Stretch> m_aStretches;
    };
    enum Phase { kToFirstMarker, kBehindJump };

    Path walk(const AcDbObjectId& start);
    bool walkToEndMarker(Place at, Path& path) const;
    bool walkToStart(Place at, Path& path) const;
    void take(int line, int from, int to, Path& path) const;

    Place placeBehind(const AcDbObjectId& start);
    Place placeOf(const AcDbObjectId& id, Phase phase);
    bool isUsable(int line, Phase phase) const;
    int addLine(End end);
    int lineToMarker(const AcDbObjectId& marker, End end);
    int lineInto(const Place& place);
    Place prepend(int line, const AcDbObjectId& id, bool member, const WalkState& met);
    void setPlace(const AcDbObjectId& id, const Place& place);

    bool givesNew(const Path& path) const;
    void noteGiven(const Path& path);
    void give(const Path& path, bool onlyNew, AcDbObjectIdArray& group) const;

    GroupWalk m_walk;
    std::vector<Line> m_aLines;
    IdMap<Place> m_places;
};
