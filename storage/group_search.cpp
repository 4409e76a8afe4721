// Keeps what walks have come over, and answers later ones from it.
#include "group_search.h"

#include <algorithm>
#include <string>

#include "handle_text.h"
#include "membership.h"

namespace {

/// Of what was met between the indices `from` and `to`, what a walk meets last; null for nothing.
template <typename Met>
const Met* lastMet(const std::vector<Met>& met, int from, int to) {
    const auto found = std::lower_bound(
        met.begin(), met.end(), to, [](const Met& one, int index) { return one.m_nIndex < index; });
    return found != met.end() && found->m_nIndex <= from ? &*found : nullptr;
}

}  // namespace

GroupSearch::Line::Line(End end)
    : m_end(end), m_nOtherLine(-1), m_nOtherIndex(-1), m_nGiven(0), m_bStale(false) {}

GroupSearch::Path::Path(const AcDbObjectId& start)
    : m_idStart(start), m_nEndLine(-1), m_bFound(false), m_nMembers(1), m_nCount(0) {}

GroupSearch::GroupSearch() {}

GroupSearch::Answer GroupSearch::find(const AcDbObjectId& start, AcDbObjectIdArray& group) {
    const Path path = walk(start);
    if (!announceVerdict(path.m_bFound, path.m_nMembers, path.m_nCount)) return kNone;
    if (!givesNew(path)) return kKnown;
    give(path, true, group);
    noteGiven(path);
    return kNew;
}

bool GroupSearch::findWhole(const AcDbObjectId& start, AcDbObjectIdArray& group) {
    const Path path = walk(start);
    const bool found = announceVerdict(path.m_bFound, path.m_nMembers, path.m_nCount);
    if (found) give(path, false, group);
    return found;
}

void GroupSearch::forget(const AcDbObjectId& marker) {
    if (const Place* place = m_places.find(marker)) m_aLines[place->m_nLine].m_bStale = true;
}

GroupSearch::Path GroupSearch::walk(const AcDbObjectId& start) {
    Path path(start);
    const Place behind = placeBehind(start);
    if (behind.m_nLine < 0 || !walkToEndMarker(behind, path)) return path;
    const WalkState jumped = m_aLines[path.m_nEndLine].m_atEnd;
    path.m_idBegin = jumped.m_idBegin;
    path.m_nCount = jumped.m_nCount;
    const AcDbObjectId target = idFromHandleText(jumped.m_sText);
    // The start is recognised by its text: a marker may name it in another writing.
    const bool namesStart = target == start && jumped.m_sText == handleText(start);
    path.m_bFound =
        namesStart || target.isNull() || walkToStart(placeOf(target, kBehindJump), path);
    return path;
}

/// Where a walk from `start` goes first; line -1 when nothing follows.
GroupSearch::Place GroupSearch::placeBehind(const AcDbObjectId& start) {
    const Place nowhere = {-1, -1};
    const Place* const known = m_places.find(start);
    if (known != nullptr && known->m_nIndex >= 0 && isUsable(known->m_nLine, kToFirstMarker) &&
        m_aLines[known->m_nLine].m_aNodes[known->m_nIndex].m_bMember) {
        const Place behind = {known->m_nLine, known->m_nIndex - 1};
        return behind;
    }
    const AcDbObjectId next = idFromHandleText(nextEntityHandle(start));
    return next.isNull() ? nowhere : placeOf(next, kToFirstMarker);
}

/// False when a begin marker or the end of the drawing comes first.
bool GroupSearch::walkToEndMarker(Place at, Path& path) const {
    for (;;) {
        const Line& line = m_aLines[at.m_nLine];
        if (lastMet(line.m_aBegins, at.m_nIndex, 0) != nullptr) return false;
        take(at.m_nLine, at.m_nIndex, 0, path);
        if (line.m_end != kOtherLine) {
            path.m_nEndLine = at.m_nLine;
            return line.m_end == kEndMarker && !line.m_atEnd.m_bAbort;
        }
        at.m_nLine = line.m_nOtherLine;
        at.m_nIndex = line.m_nOtherIndex;
    }
}

/// Walks until the start is met or the drawing ends; false when a second end marker comes first.
bool GroupSearch::walkToStart(Place at, Path& path) const {
    const Place* const start = m_places.find(path.m_idStart);
    for (bool jumped = true;; jumped = false) {
        const Line& line = m_aLines[at.m_nLine];
        // Where the walk arrives by its jump it does not recognise the start.
        const bool meetsStart = start != nullptr && start->m_nLine == at.m_nLine &&
                                start->m_nIndex <= at.m_nIndex - (jumped ? 1 : 0);
        take(at.m_nLine, at.m_nIndex, meetsStart ? start->m_nIndex + 1 : 0, path);
        if (meetsStart || line.m_end != kOtherLine)
            return meetsStart || line.m_end == kEndOfDrawing;
        at.m_nLine = line.m_nOtherLine;
        at.m_nIndex = line.m_nOtherIndex;
    }
}

/// Lets the path go over the nodes `from` down to `to`.
void GroupSearch::take(int line, int from, int to, Path& path) const {
    if (from < to) return;
    const Line& taken = m_aLines[line];
    path.m_nMembers += taken.m_aNodes[from].m_nMembers;
    if (to > 0) path.m_nMembers -= taken.m_aNodes[to - 1].m_nMembers;
    if (const auto* begin = lastMet(taken.m_aBegins, from, to)) path.m_idBegin = begin->m_value;
    if (const auto* count = lastMet(taken.m_aCounts, from, to)) path.m_nCount = count->m_value;
    const Stretch stretch = {line, from, to};
    path.m_aStretches.push_back(stretch);
}

/// Where a walk goes on that comes to `id`, which is not null. What is not known yet is looked at,
/// up to something known or to the end of a line.
GroupSearch::Place GroupSearch::placeOf(const AcDbObjectId& id, Phase phase) {
    struct Look {
        AcDbObjectId m_id;
        bool m_bMember;
        WalkState m_met;
    };
    std::vector<Look> looks;
    Place place = {-1, -1};
    for (AcDbObjectId current = id; place.m_nLine < 0;) {
        const Place* known = current.isNull() ? nullptr : m_places.find(current);
        if (current.isNull()) {
            place.m_nLine = addLine(kEndOfDrawing);
        } else if (known != nullptr && isUsable(known->m_nLine, phase)) {
            if (looks.empty()) return *known;
            place.m_nLine = lineInto(*known);
        } else {
            Look look = {current, false, WalkState(true)};
            look.m_bMember = m_walk.visit(current, look.m_met);
            if (look.m_met.m_bAbort) {
                place.m_nLine = lineToMarker(current, kEndMarker);
            } else if (phase == kToFirstMarker && !look.m_met.m_idBegin.isNull()) {
                place.m_nLine = lineToMarker(current, kBeginMarker);
            } else {
                current = idFromHandleText(look.m_bMember ? nextEntityHandle(current)
                                                          : look.m_met.m_sText);
                looks.push_back(look);
            }
        }
    }
    for (auto look = looks.rbegin(); look != looks.rend(); ++look) {
        place = prepend(place.m_nLine, look->m_id, look->m_bMember, look->m_met);
    }
    return place;
}

bool GroupSearch::isUsable(int line, Phase phase) const {
    while (!m_aLines[line].m_bStale && m_aLines[line].m_end == kOtherLine) {
        line = m_aLines[line].m_nOtherLine;
    }
    return !m_aLines[line].m_bStale &&
           (phase == kToFirstMarker || m_aLines[line].m_end != kBeginMarker);
}

int GroupSearch::addLine(End end) {
    m_aLines.push_back(Line(end));
    return static_cast<int>(m_aLines.size()) - 1;
}

int GroupSearch::lineToMarker(const AcDbObjectId& marker, End end) {
    const int line = addLine(end);
    if (end == kEndMarker) m_walk.visit(marker, m_aLines[line].m_atEnd);
    const Place place = {line, -1};
    setPlace(marker, place);
    return line;
}

/// The line that runs into that place: its own in front of its first entity, else a new one.
int GroupSearch::lineInto(const Place& place) {
    const int first = static_cast<int>(m_aLines[place.m_nLine].m_aNodes.size()) - 1;
    if (place.m_nIndex == first) return place.m_nLine;
    const Place into = place;
    const int line = addLine(kOtherLine);
    m_aLines[line].m_nOtherLine = into.m_nLine;
    m_aLines[line].m_nOtherIndex = into.m_nIndex;
    return line;
}

/// Puts an entity in front of a line's first one.
GroupSearch::Place GroupSearch::prepend(int line, const AcDbObjectId& id, bool member,
                                        const WalkState& met) {
    Line& grown = m_aLines[line];
    const int index = static_cast<int>(grown.m_aNodes.size());
    const int behind = index == 0 ? 0 : grown.m_aNodes[index - 1].m_nMembers;
    const Node node = {id, member, behind + (member ? 1 : 0)};
    grown.m_aNodes.push_back(node);
    if (!met.m_idBegin.isNull()) {
        const Met<AcDbObjectId> begin = {index, met.m_idBegin};
        grown.m_aBegins.push_back(begin);
    }
    if (met.m_bCounted) {
        const Met<int> count = {index, met.m_nCount};
        grown.m_aCounts.push_back(count);
    }
    const Place place = {line, index};
    setPlace(id, place);
    return place;
}

/// A marker that ended a line and is taken into another ends the former: one of them is told when
/// it is erased.
void GroupSearch::setPlace(const AcDbObjectId& id, const Place& place) {
    const Place* const former = m_places.find(id);
    if (former != nullptr && former->m_nIndex < 0) m_aLines[former->m_nLine].m_bStale = true;
    m_places.set(id, place);
}

bool GroupSearch::givesNew(const Path& path) const {
    if (m_aLines[path.m_nEndLine].m_idGivenBegin != path.m_idBegin) return true;
    for (std::size_t i = 0; i < path.m_aStretches.size(); ++i) {
        const Stretch& stretch = path.m_aStretches[i];
        if (stretch.m_nFrom >= m_aLines[stretch.m_nLine].m_nGiven) return true;
    }
    return false;
}

/// What was given of a line are always its last nodes; a stretch farther in front is not noted.
void GroupSearch::noteGiven(const Path& path) {
    m_aLines[path.m_nEndLine].m_idGivenBegin = path.m_idBegin;
    const Place* const start = m_places.find(path.m_idStart);
    for (std::size_t i = 0; i < path.m_aStretches.size(); ++i) {
        const Stretch& stretch = path.m_aStretches[i];
        Line& line = m_aLines[stretch.m_nLine];
        if (start != nullptr && start->m_nLine == stretch.m_nLine &&
            start->m_nIndex == line.m_nGiven)
            ++line.m_nGiven;
        if (stretch.m_nTo <= line.m_nGiven && stretch.m_nFrom >= line.m_nGiven)
            line.m_nGiven = stretch.m_nFrom + 1;
    }
}

void GroupSearch::give(const Path& path, bool onlyNew, AcDbObjectIdArray& group) const {
    group.setLogicalLength(0);
    group.append(path.m_idBegin);
    group.append(path.m_idStart);
    for (std::size_t i = 0; i < path.m_aStretches.size(); ++i) {
        const Stretch& stretch = path.m_aStretches[i];
        const Line& line = m_aLines[stretch.m_nLine];
        const int last = onlyNew ? std::max(stretch.m_nTo, line.m_nGiven) : stretch.m_nTo;
        for (int k = stretch.m_nFrom; k >= last; --k) {
            if (line.m_aNodes[k].m_bMember) group.append(line.m_aNodes[k].m_id);
        }
    }
    group.append(m_aLines[path.m_nEndLine].m_atEnd.m_idEnd);
}
