// One look of the membership walk: what a marker in its way makes of it.
#pragma once

#include <string>

#include "platform.h"

/// Where a walk stands and what it has found so far.
struct WalkState {
    /// A walk that has begun, or one that has met its end marker already.
    explicit WalkState(bool beginFound = false);

    bool m_bBeginFound;      ///< an end marker was met, and so the begin marker that it names
    bool m_bAbort;           ///< markers stand in an order that no group has
    bool m_bCounted;         ///< a count was read
    AcDbObjectId m_idBegin;  ///< the last begin marker that was named or met
    AcDbObjectId m_idEnd;
    int m_nCount;          ///< the last count that was read, else 0
    std::wstring m_sText;  ///< handle text of the entity that comes next
};

/// Looks at entities for a walk, with the marker tags of the working drawing.
class GroupWalk {
  public:
    GroupWalk();

    /// Looks at the attributes of an entity. True when nothing makes it a marker: then it is a
    /// member, and `state` still wants to know what comes next. Otherwise `state` has moved on, or
    /// its walk is to be given up.
    bool visit(const AcDbObjectId& current, WalkState& state) const;

  private:
    std::wstring m_sBeginTag;
    std::wstring m_sEndTag;
};

/// Handle text of the entity that follows in drawing order, or an empty text behind the last one.
/// The attributes of a block reference and the vertices of a two-dimensional polyline are stepped
/// over; other old-style polylines are not.
std::wstring nextEntityHandle(const AcDbObjectId& entityId);
