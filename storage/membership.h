// The membership walk: finds the whole group of an entity by drawing order.
#pragma once

#include <string>

#include "object_ids.h"
#include "platform.h"

/// Handle text of the entity that follows in drawing order, or an empty text behind the last one.
/// The attributes of a block reference and the vertices of a two-dimensional polyline are stepped
/// over; other old-style polylines are not.
std::wstring nextEntityHandle(const AcDbObjectId& entityId);

/// Finds the group that `start` belongs to: walks to the end marker, jumps to the begin marker that
/// it names, walks on to `start`, and checks the number of members against the begin marker's
/// count. On success `group` holds the begin marker, the members from `start` on to the last, then
/// from the first on to the one before `start`, and the end marker; missing members are announced.
/// Otherwise a line is printed, the result is false and `group` stays as it was.
bool verifyGroup(AcDbObjectIdArray& group, const AcDbObjectId& start);

/// What a walk came to: whether there is a group and how many of its members are gone.
struct GroupVerdict {
    bool found = false;
    int missing = 0;
    bool endless = false;  ///< no end marker stands behind where it began
};

/// Answers for many entities while the drawing stays as it is, and walks each group once: from
/// another member the walk would give the same members in a turned order, and one that comes to
/// what has no group would go on from there in the same way. It knows nothing of the drawing beyond
/// that and has to end before the drawing changes, unless that is told.
class GroupSearch {
  public:
    /// As verifyGroup, lines printed included. Of a group that was given before, `group` receives
    /// `start` alone.
    bool verify(AcDbObjectIdArray& group, const AcDbObjectId& start);
    /// Markers were erased: only what has no end marker behind it is as it was.
    void forget();
    /// Null when nothing is known.
    const GroupVerdict* find(const AcDbObjectId& id) const;

  private:
    void remember();

    IdSet m_endless;
    IdMap<GroupVerdict> m_known;
    AcDbObjectIdArray m_lastSharers{0, kIdListGrowth};  ///< of the last verdict, not in m_known yet
    GroupVerdict m_lastVerdict;
};
