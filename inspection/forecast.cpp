// Plays the repair pass on a model: markers in drawing order and what stands between them.
#include "inspection/forecast.h"

#include <utility>

#include "host/text/text_codec.h"

namespace inspection {
namespace {

/// Numbers in a row that change: sums over stretches of them in logarithmic time.
class Sums {
  public:
    explicit Sums(std::size_t size) : m_parts(size + 1, 0) {}
    void add(std::size_t at, long amount) {
        for (++at; at < m_parts.size(); at += at & (~at + 1))
            m_parts[at] += amount;
    }
    /// Of those from `first` to before `end`.
    long between(std::size_t first, std::size_t end) const { return upTo(end) - upTo(first); }

  private:
    long upTo(std::size_t end) const {
        long sum = 0;
        for (; end > 0; end -= end & (~end + 1))
            sum += m_parts[end];
        return sum;
    }
    std::vector<long> m_parts;
};

class Play {
  public:
    Play(const Reading& reading, Steps& steps)
        : m_before(reading.markers),
          m_markers(reading.markers),
          m_gone(m_markers.size(), false),
          m_steps(steps),
          m_met(m_markers.size()),
          m_nextEnd(m_markers.size() + 1, m_markers.size()) {
        for (std::size_t i = 0; i < m_markers.size(); ++i) {
            m_met.add(i, 1 + m_steps.own(i) + m_steps.behind(i));
            m_nextEnd[i] = m_markers[i].endTag ? i : i + 1;
        }
    }

    void run() {
        for (std::size_t i = m_markers.size(); i-- > 0;) {
            if (m_markers[i].selectedBegin) settle(i);
        }
        for (std::size_t i = 0; i < m_markers.size(); ++i) {
            const Marker& marker = m_markers[i];
            const bool partner = marker.exactTag && !resolve(marker.text).isNull();
            if (marker.selected && !partner) erase(i);
        }
        std::vector<std::size_t> left;  // markers behind the current one, the next one last
        for (std::size_t i = m_markers.size(); i-- > 0;) {
            if (m_markers[i].selectedBegin && !m_gone[i] && !left.empty()) {
                purgeEmpty(i, left.back());
                if (m_gone[left.back()]) left.pop_back();
            }
            if (!m_gone[i]) left.push_back(i);
        }
    }

    Repair outcome(const Pair& pair) const {
        if (m_gone[pair.begin] && m_gone[pair.end]) return Repair::Dissolved;
        if (m_gone[pair.begin] || m_gone[pair.end]) return Repair::Halved;
        const Marker& begin = m_markers[pair.begin];
        const Marker& end = m_markers[pair.end];
        const bool counted = countOf(begin.count).value_or(0) == pair.between;
        if (!begin.sound || !end.sound || !counted || !names(begin, end) || !names(end, begin))
            return Repair::Damaged;
        if (digitsOf(m_before[pair.begin].count) != pair.between) return Repair::Shortened;
        const bool linked = names(m_before[pair.begin], end) && names(m_before[pair.end], begin);
        return linked ? Repair::Stays : Repair::Linked;
    }

  private:
    /// The first end marker from one on that is not gone, or the number of markers.
    std::size_t endFrom(std::size_t i) {
        std::size_t end = i;
        while (m_nextEnd[end] != end)
            end = m_nextEnd[end];
        while (m_nextEnd[i] != end)
            i = std::exchange(m_nextEnd[i], end);
        return end;
    }

    /// What a walk meets between two markers.
    long between(std::size_t begin, std::size_t end) const {
        return m_steps.own(begin) + m_steps.behind(begin) + m_met.between(begin + 1, end);
    }

    /// Settles a begin marker and the end marker that the walk from it reaches.
    void settle(std::size_t begin) {
        const std::size_t end = endFrom(begin + 1);
        if (end == m_markers.size()) return;
        const long between = this->between(begin, end);
        const int expected = digitsOf(m_markers[begin].count);
        if (between == 0 ? expected != 0 : between > expected) {
            erase(begin);
            erase(end);
            return;
        }
        const std::wstring count =
            between == expected ? m_markers[begin].count : std::to_wstring(between);
        link(begin, end, count);
        link(end, begin, count);
    }

    void link(std::size_t i, std::size_t other, const std::wstring& count) {
        Marker& marker = m_markers[i];
        if (marker.locked) return;
        marker.text = host::fromUtf8(m_markers[other].handle);
        marker.count = count;
    }

    void erase(std::size_t i) {
        if (m_gone[i] || m_markers[i].locked) return;
        m_gone[i] = true;
        m_nextEnd[i] = i + 1;
        m_met.add(i, -1 - m_steps.own(i));  // what stands behind it is met as before
    }

    /// Takes a pair away that has nothing between its markers.
    void purgeEmpty(std::size_t begin, std::size_t next) {
        if (between(begin, next) != 0 || !names(m_markers[begin], m_markers[next])) return;
        erase(next);
        erase(begin);
    }

    const std::vector<Marker>& m_before;
    std::vector<Marker> m_markers;
    std::vector<bool> m_gone;
    Steps& m_steps;
    Sums m_met;                          ///< by a walk, at each marker and behind it
    std::vector<std::size_t> m_nextEnd;  ///< the marker itself, or where to look for the next end
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
