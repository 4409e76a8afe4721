// Finds the groups of a drawing and judges each.
#include "inspection/inspection.h"

#include <algorithm>

#include "arxHeaders.h"
#include "group_naming.h"
#include "host/text/text_codec.h"
#include "inspection/forecast.h"
#include "inspection/judgement.h"
#include "inspection/markers.h"

namespace inspection {
namespace {

/// Makes a drawing the working one for as long as it lives.
class Working {
  public:
    explicit Working(AcDbDatabase& drawing) : m_former(services().workingDatabase()) {
        services().setWorkingDatabase(&drawing);
    }
    ~Working() { services().setWorkingDatabase(m_former); }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

  private:
    static AcDbHostApplicationServices& services() { return *acdbHostApplicationServices(); }
    AcDbDatabase* m_former;
};

Extents united(const Extents& a, const Extents& b) {
    return {std::min(a[0], b[0]), std::min(a[1], b[1]), std::max(a[2], b[2]), std::max(a[3], b[3])};
}

/// Judges the groups of one space into the inspection of the drawing.
class Judge {
  public:
    Judge(const Reading& reading, const std::string& space, const std::string& otherPrefix,
          const Describe& describe, Inspection& result)
        : m_reading(reading),
          m_steps(reading),
          m_space(space),
          m_otherPrefix(otherPrefix),
          m_describe(describe),
          m_result(result) {}

    void run() {
        const std::vector<Pair> pairs = findPairs();
        const std::vector<Repair> repairs = forecast(m_reading, m_steps, pairs);
        const std::vector<Marker>& markers = m_reading.markers;
        std::vector<bool> paired(markers.size(), false);
        m_settled.assign(m_reading.places.size(), false);
        for (const Marker& marker : markers)
            m_settled[marker.place] = true;
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            paired[pairs[i].begin] = paired[pairs[i].end] = true;
            addGroup(pairs[i], repairs[i]);
        }
        for (std::size_t i = 0; i < markers.size(); ++i) {
            if (paired[i]) continue;
            Stray& stray = addStray(m_reading.places[markers[i].place]);
            explain(stray, markers[i]);
        }
        addForeignMarkers();
        addStrayRecords();
    }

  private:
    /// Each begin marker with the end marker that follows it.
    std::vector<Pair> findPairs() {
        std::vector<Pair> pairs;
        const std::vector<Marker>& markers = m_reading.markers;
        std::size_t open = 0;  // the first of the pairs whose end was not met yet
        long met = 0;          // by a walk from the first marker on
        for (std::size_t i = 0; i < markers.size(); ++i) {
            for (; markers[i].endTag && open < pairs.size(); ++open) {
                pairs[open].end = i;
                pairs[open].between += met;
                pairs[open].holdsBegin = open + 1 < pairs.size();
            }
            ++met;
            if (markers[i].begins() && !markers[i].endTag) pairs.push_back({i, i, -met, false});
            met += m_steps.own(i) + m_steps.behind(i);
        }
        pairs.resize(open);
        return pairs;
    }

    void addGroup(const Pair& pair, Repair repair) {
        const std::vector<Marker>& markers = m_reading.markers;
        Group group;
        group.begin = markers[pair.begin].handle;
        group.end = markers[pair.end].handle;
        group.space = m_space;
        group.count = countOf(markers[pair.begin].count).value_or(0);
        group.repair = repair;
        judge(group, markers[pair.begin], markers[pair.end], pair);
        // What two begin markers reach belongs to the nearer one.
        std::size_t last = pair.begin + 1;
        while (last < pair.end && !markers[last].begins())
            ++last;
        for (std::size_t i = markers[pair.begin].place + 1; i < markers[last].place; ++i) {
            if (m_settled[i]) continue;
            m_settled[i] = true;
            addMember(group, m_reading.places[i]);
        }
        m_result.groups.push_back(std::move(group));
    }

    void addMember(Group& group, const Place& place) {
        Entity& member = group.members.emplace_back(m_describe(place.id));
        member.hasRecord = place.hasRecord;
        const std::optional<Extents>& drawn = member.extents;
        if (drawn) group.extents = group.extents ? united(*group.extents, *drawn) : *drawn;
    }

    Stray& addStray(const Place& place) {
        const Entity entity = m_describe(place.id);
        return m_result.strays.emplace_back(Stray{entity.handle, entity.type, {}, m_space, {}});
    }

    void addForeignMarkers() {
        for (const auto& [place, begins] : m_reading.foreign) {
            Stray& stray = addStray(m_reading.places[place]);
            stray.what = begins ? "begin marker" : "end marker";
            stray.reason = "it is one of " + m_otherPrefix + " groups, and this drawing has " +
                           m_result.prefix + " groups";
        }
    }

    void addStrayRecords() {
        for (std::size_t i = 0; i < m_settled.size(); ++i) {
            if (m_settled[i] || !m_reading.places[i].hasRecord) continue;
            Stray& stray = addStray(m_reading.places[i]);
            stray.what = "group record";
            stray.reason = "it belongs to no group any more";
        }
    }

    const Reading& m_reading;
    Steps m_steps;
    const std::string& m_space;
    const std::string& m_otherPrefix;
    const Describe& m_describe;
    Inspection& m_result;
    std::vector<bool> m_settled;  ///< places of markers and members
};

}  // namespace

long Inspection::whole() const {
    return std::count_if(groups.begin(), groups.end(),
                         [](const Group& group) { return group.state == State::Whole; });
}

Inspection inspect(AcDbDatabase& drawing, const std::vector<Space>& spaces,
                   const Describe& describe) {
    const Working working(drawing);
    const std::wstring prefix = groupPrefix();
    const Names names(prefix);
    const Names others(prefix == GroupPrefix::kOlder ? GroupPrefix::kNewer : GroupPrefix::kOlder);
    const std::string otherPrefix = host::toUtf8(others.prefix);
    Inspection result;
    result.prefix = host::toUtf8(prefix);
    for (const Space& space : spaces) {
        const Reading reading = readSpace(space.block, names, others);
        Judge(reading, space.name, otherPrefix, describe, result).run();
    }
    return result;
}

bool isMarkerName(const std::string& name) {
    const std::wstring wanted = host::foldCase(host::fromUtf8(name));
    for (const std::wstring prefix : {GroupPrefix::kNewer, GroupPrefix::kOlder}) {
        for (const wchar_t* suffix :
             {GroupSuffix::kLayer, GroupSuffix::kBeginMarker, GroupSuffix::kEndMarker}) {
            if (wanted == prefix + suffix) return true;
        }
    }
    return false;
}

const char* nameOf(State state) {
    constexpr const char* kNames[] = {"whole", "short", "over", "empty", "broken"};
    return kNames[static_cast<int>(state)];
}

}  // namespace inspection
