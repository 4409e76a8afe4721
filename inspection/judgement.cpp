// Decides what is wrong with a group, and says it.
#include "inspection/judgement.h"

#include "host/text/numbers.h"
#include "host/text/text_codec.h"

namespace inspection {
namespace {

using host::amount;

std::string outlook(Repair repair, long between, bool locked) {
    if (locked) return "its markers stand on a locked layer, so that no save mends it";
    switch (repair) {
        case Repair::Shortened:
            return "the next save lowers the count to " + std::to_string(between);
        case Repair::Linked:
            return "the next save links its markers again";
        case Repair::Dissolved:
            return "the next save dissolves it";
        case Repair::Halved:
            return "the next save takes one of its markers away";
        case Repair::Stays:
        case Repair::Damaged:
            break;
    }
    return "the next save does not mend it";
}

/// Why the markers are no pair; empty when they are one.
std::string breach(const Marker& begin, const Marker& end, const Pair& pair) {
    if (pair.holdsBegin) return "a marker of another group stands between its markers";
    if (pair.between == 0) return {};
    if (!begin.sound) return "the attributes of its begin marker are damaged";
    if (!end.sound) return "the attributes of its end marker are damaged";
    const bool forward = names(begin, end), back = names(end, begin);
    if (!forward && !back) return "its markers do not name each other";
    if (!forward) return "its begin marker does not name its end marker";
    if (!back) return "its end marker does not name its begin marker";
    const std::optional<int> count = countOf(begin.count);
    if (!count) return "its count \"" + host::toUtf8(begin.count) + "\" is no number";
    if (*count != digitsOf(begin.count))
        return "its count \"" + host::toUtf8(begin.count) + "\" does not begin with a digit";
    return {};
}

}  // namespace

void judge(Group& group, const Marker& begin, const Marker& end, const Pair& pair) {
    const long missing = group.count - pair.between;
    group.reason = breach(begin, end, pair);
    if (!group.reason.empty()) {
        group.state = State::Broken;
    } else if (pair.between == 0) {
        group.state = State::Empty;
        group.reason = "nothing stands between its markers";
    } else if (missing > 0) {
        group.state = State::Short;
        group.reason = amount(missing, "member is gone", "members are gone");
    } else if (missing < 0) {
        group.state = State::Over;
        group.reason = amount(-missing, "entity", "entities") +
                       " more than it counts stand between its markers";
    } else if (group.repair != Repair::Stays) {
        group.state = State::Broken;
        group.reason = "a begin marker before it, without an end of its own, reaches into it";
    } else {
        group.state = State::Whole;
        return;
    }
    group.outlook = outlook(group.repair, pair.between, begin.locked || end.locked);
}

void explain(Stray& stray, const Marker& marker) {
    if (marker.begins()) {
        stray.what = "begin marker";
        stray.reason = "no end marker follows";
    } else if (marker.endTag) {
        stray.what = "end marker";
        stray.reason = "no begin marker stands before it";
    } else {
        stray.what = "marker";
        stray.reason = "its block is named like a marker's, but its attribute is not a marker's";
    }
}

}  // namespace inspection
