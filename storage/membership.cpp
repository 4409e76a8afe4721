// Walks drawing order to find and verify the group of an entity.
#include "membership.h"

#include "group_walk.h"
#include "handle_text.h"
#include "object_ids.h"

bool announceVerdict(bool beginFound, int members, int count) {
    // Compared before anything is subtracted: a count may be as far below 0 as an int goes.
    if (!beginFound || members > count) {
        acedPrompt(L"\n\tSome are not grouped entities.");
        return false;
    }
    if (members < count) {
        acutPrintf(L"\nNote: %d member(s) missing from original Group.", count - members);
    }
    return true;
}

bool verifyGroup(AcDbObjectIdArray& group, const AcDbObjectId& start) {
    const GroupWalk walk;
    WalkState state;
    AcDbObjectIdArray members(0, kIdListGrowth);
    members.append(start);
    const std::wstring startText = handleText(start);
    state.m_sText = nextEntityHandle(start);
    AcDbObjectId current = idFromHandleText(state.m_sText);
    while (state.m_sText != startText && !state.m_bAbort && !current.isNull()) {
        if (walk.visit(current, state)) {
            members.append(current);
            state.m_sText = nextEntityHandle(current);
        }
        current = idFromHandleText(state.m_sText);
    }
    const bool beginFound = state.m_bBeginFound && !state.m_bAbort;
    if (!announceVerdict(beginFound, members.length(), state.m_nCount)) return false;
    group.setLogicalLength(0);
    group.append(state.m_idBegin);
    group.append(members);
    group.append(state.m_idEnd);
    return true;
}
