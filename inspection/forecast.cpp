// Plays the repair pass on a model: markers in drawing order and what stands between them.
#include "inspection/forecast.h"

#include "host/text/text_codec.h"

namespace inspection {
namespace {

class Play {
  public:
    Play(const Reading& reading, Steps& steps)
        : m_before(reading.markers),
          m_markers(reading.markers),
          m_gone(m_markers.size(), false),
          m_steps(steps) {}

    void run() {
        m_end = m_markers.size();
        for (std::size_t i = m_markers.size(); i-- > 0;) {
            m_between += m_steps.behind(i);
            if (m_markers[i].selectedBegin) settle(i);
            if (isEnd(i)) {
                m_end = i;
                m_between = 0;
            } else if (!m_gone[i]) {
                m_between += 1 + m_steps.own(i);
            }
        }
        for (std::size_t i = 0; i < m_markers.size(); ++i) {
            const Marker& marker = m_markers[i];
            const bool partner = marker.exactTag && !resolve(marker.text).isNull();
            if (marker.selected && !partner) erase(i);
        }
        for (std::size_t i = m_markers.size(); i-- > 0;) {
            if (m_markers[i].selectedBegin && !m_gone[i]) purgeEmpty(i);
        }
    }

    Repair outcome(const Pair& pair) const {
        if (m_gone[pair.begin] && m_gone[pair.end]) return Repair::Dissolved;
        if (m_gone[pair.begin] || m_gone[pair.end]) return Repair::Halved;
        const Marker& begin = m_markers[pair.begin];
        const Marker& end = m_markers[pair.end];
        const bool counted = countOf(begin.count) == pair.between;
        if (!begin.sound || !end.sound || !counted || !names(begin, end) || !names(end, begin))
            return Repair::Damaged;
        if (digitsOf(m_before[pair.begin].count) != pair.between) return Repair::Shortened;
        const bool linked = names(m_before[pair.begin], end) && names(m_before[pair.end], begin);
        return linked ? Repair::Stays : Repair::Linked;
    }

  private:
    bool isEnd(std::size_t i) const { return !m_gone[i] && m_markers[i].endTag; }

    /// Settles a begin marker and the end marker that the walk from it reaches.
    void settle(std::size_t begin) {
        if (m_end == m_markers.size()) return;
        const long between = m_between + m_steps.own(begin);
        const int expected = digitsOf(m_markers[begin].count);
        if (between == 0 ? expected != 0 : between > expected) {
            erase(begin);
            erase(m_end);
            if (m_gone[m_end]) goOn();
            return;
        }
        const std::wstring count =
            between == expected ? m_markers[begin].count : std::to_wstring(between);
        link(begin, m_end, count);
        link(m_end, begin, count);
    }

    /// From an end marker that is gone to the next one.
    void goOn() {
        do {
            m_between += m_steps.behind(m_end) + (m_gone[m_end] ? 0 : 1 + m_steps.own(m_end));
        } while (++m_end < m_markers.size() && !isEnd(m_end));
    }

    void link(std::size_t i, std::size_t other, const std::wstring& count) {
        Marker& marker = m_markers[i];
        if (marker.locked) return;
        marker.text = host::fromUtf8(m_markers[other].handle);
        marker.count = count;
    }

    void erase(std::size_t i) { m_gone[i] = m_gone[i] || !m_markers[i].locked; }

    /// Takes a pair away that has nothing between its markers.
    void purgeEmpty(std::size_t begin) {
        std::size_t next = begin;
        if (m_steps.own(begin) != 0) return;
        do {
            if (m_steps.behind(next++) != 0) return;
        } while (next < m_markers.size() && m_gone[next]);
        if (next == m_markers.size() || !names(m_markers[begin], m_markers[next])) return;
        erase(next);
        erase(begin);
    }

    const std::vector<Marker>& m_before;
    std::vector<Marker> m_markers;
    std::vector<bool> m_gone;
    Steps& m_steps;
    std::size_t m_end = 0;  ///< the end marker that a walk from the current marker reaches
    long m_between = 0;     ///< what that walk meets behind the marker and what it owns
};

}  // namespace

std::vector<Repair> forecast(const Reading& reading, Steps& steps, const std::vector<Pair>& pairs) {
    Play play(reading, steps);
    play.run();
    std::vector<Repair> outcomes;
    outcomes.reserve(pairs.size());
    for (const Pair& pair : pairs)
        outcomes.push_back(play.outcome(pair));
    return outcomes;
}

bool names(const Marker& marker, const Marker& other) {
    const AcDbHandle named(marker.text.c_str());
    return !named.isNull() && named == AcDbHandle(host::fromUtf8(other.handle).c_str());
}

}  // namespace inspection
