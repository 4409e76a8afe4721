// Remembers where the walks from begin markers lead to.
#include "end_search.h"

#include <algorithm>

#include "group_forming.h"
#include "group_walk.h"
#include "handle_text.h"
#include "marker.h"

EndSearch::EndSearch(const std::wstring& endTag) : m_sEndTag(endTag) {}

EndSearch::Answer EndSearch::find(const AcDbObjectId& begin) {
    Answer answer = {AcDbObjectId(), std::wstring(), 0};
    const std::wstring handle = nextEntityHandle(begin);
    if (handle.empty()) return answer;
    const AcDbObjectId first = idFromHandleText(handle);
    const int found = wayOf(first, handle);
    const Way& way = m_aWays[found];
    const int distance = resolved(*m_places.find(first)).m_nDistance;
    const auto across = std::upper_bound(way.m_aErased.begin(), way.m_aErased.end(), distance);
    answer.m_idEnd = way.m_idEnd;
    answer.m_sHandle = way.m_sHandle;
    answer.m_nBetween = distance - static_cast<int>(across - way.m_aErased.begin());
    return answer;
}

void EndSearch::erasePair(const AcDbObjectId& begin, const AcDbObjectId& end) {
    const std::wstring behind = nextEntityHandle(end);
    eraseObject(begin);
    eraseObject(end);
    if (const Place* known = begin.isErased() ? m_places.find(begin) : nullptr) {
        const Place place = resolved(*known);
        std::vector<int>& erased = m_aWays[place.m_nWay].m_aErased;
        erased.insert(std::lower_bound(erased.begin(), erased.end(), place.m_nDistance),
                      place.m_nDistance);
    }
    if (const Place* known = end.isErased() ? m_places.find(end) : nullptr) {
        m_aWays[known->m_nWay].m_sBehind = behind;
    }
}

/// The way that leads from `first` to an end marker that stands, or to the end of the drawing.
int EndSearch::wayOf(const AcDbObjectId& first, const std::wstring& handle) {
    std::vector<Passed> passed;
    AcDbObjectId current = first;
    std::wstring text = handle;
    int found = -1;
    while (found < 0) {
        found = goOn(current, text, passed);
    }
    for (auto part = passed.rbegin(); part != passed.rend(); ++part) {
        if (part->m_nWay >= 0) {
            join(part->m_nWay, found);
        } else {
            const Place place = {found, ++m_aWays[found].m_nLength};
            m_places.set(part->m_id, place);
        }
    }
    return found;
}

/// One step of that walk; the way once it is known, else -1.
int EndSearch::goOn(AcDbObjectId& current, std::wstring& text, std::vector<Passed>& passed) {
    const Place* const known = m_places.find(current);
    const int way = known != nullptr ? resolved(*known).m_nWay : -1;
    if (way >= 0 && !m_aWays[way].m_bLost) {
        Way& led = m_aWays[way];
        if (led.m_idEnd.isNull() || !led.m_idEnd.isErased()) return way;
        const AcDbObjectId behind = idFromHandleText(led.m_sBehind);
        led.m_bLost = behind.isNull() || behind.isErased();
        if (led.m_bLost) return -1;
        const Passed part = {AcDbObjectId(), way};
        passed.push_back(part);
        text = led.m_sBehind;
        current = behind;
        return -1;
    }
    if (sameTag(readMarkerText(current, kMarkerTag), m_sEndTag)) {
        const Place place = {addWay(current, text), 0};
        m_places.set(current, place);
        return place.m_nWay;
    }
    const Passed entity = {current, -1};
    passed.push_back(entity);
    text = nextEntityHandle(current);
    current = idFromHandleText(text);
    return current.isValid() ? -1 : addWay(AcDbObjectId(), std::wstring());
}

int EndSearch::addWay(const AcDbObjectId& end, const std::wstring& handle) {
    const Way way = {end, handle, 0, std::vector<int>(), std::wstring(), -1, 0, false};
    m_aWays.push_back(way);
    return static_cast<int>(m_aWays.size()) - 1;
}

/// Puts a way whose end is erased in front of another.
void EndSearch::join(int way, int into) {
    Way& part = m_aWays[way];
    Way& whole = m_aWays[into];
    part.m_nJoined = into;
    part.m_nJoinedAt = whole.m_nLength;
    for (std::size_t i = 0; i < part.m_aErased.size(); ++i) {
        whole.m_aErased.push_back(part.m_aErased[i] + whole.m_nLength);
    }
    whole.m_nLength += part.m_nLength;
}

/// The same place on the way that its own is a part of by now.
EndSearch::Place EndSearch::resolved(const Place& place) {
    Place whole = place;
    while (m_aWays[whole.m_nWay].m_nJoined >= 0) {
        const Way& part = m_aWays[whole.m_nWay];
        whole.m_nDistance += part.m_nJoinedAt;
        whole.m_nWay = part.m_nJoined;
    }
    if (whole.m_nWay != place.m_nWay) {  // the next one takes a single step
        m_aWays[place.m_nWay].m_nJoined = whole.m_nWay;
        m_aWays[place.m_nWay].m_nJoinedAt = whole.m_nDistance - place.m_nDistance;
    }
    return whole;
}
