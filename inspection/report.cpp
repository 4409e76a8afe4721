// Words for an inspection.
#include "inspection/report.h"

#include <cstdio>
#include <functional>

#include "host/text/text_codec.h"

namespace inspection {
namespace {

/// "20 LINE, 12 ARC", the most frequent first.
std::string listed(const Census& counts) {
    std::multimap<int, std::string, std::greater<int>> byCount;
    for (const auto& [name, count] : counts)
        byCount.emplace(count, name);
    std::string text;
    for (const auto& [count, name] : byCount)
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + name;
    return text;
}

/// Names of a drawing may hold anything.
std::string printable(const std::string& line) {
    return host::toUtf8(host::printable(host::fromUtf8(line)));
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

std::string line(const Group& group) {
    std::string text = "group " + group.begin + " to " + group.end + " in " + group.space + ": " +
                       nameOf(group.state) + ", counts " + std::to_string(group.count);
    if (!group.members.empty()) {
        text += "; holds " + listed(census(group, &Entity::type));
        text += " on layers " + listed(census(group, &Entity::layer));
    }
    if (group.extents) {
        const Extents& box = *group.extents;
        text += "; from " + number(box[0]) + "," + number(box[1]) + " to " + number(box[2]) + "," +
                number(box[3]);
    }
    long without = 0;
    for (const Entity& member : group.members)
        without += member.hasRecord ? 0 : 1;
    if (without > 0) text += "; " + std::to_string(without) + " without a group record";
    if (!group.reason.empty()) text += "; " + group.reason + "; " + group.outlook;
    return text;
}

}  // namespace

Census census(const Group& group, std::string Entity::*property) {
    Census counts;
    for (const Entity& member : group.members)
        ++counts[member.*property];
    return counts;
}

std::string listText(const std::string& head, const Inspection& found) {
    std::string text;
    for (const Group& group : found.groups)
        text += head + printable(line(group)) + "\n";
    for (const Stray& stray : found.strays) {
        text += head +
                printable("stray " + stray.what + " " + stray.handle + " (" + stray.type + ") in " +
                          stray.space + ": " + stray.reason) +
                "\n";
    }
    if (found.groups.empty() && found.strays.empty()) return head + "no groups\n";
    const long whole = found.whole();
    return text + head + std::to_string(whole) + " whole, " +
           std::to_string(static_cast<long>(found.groups.size()) - whole) + " not whole, " +
           std::to_string(found.strays.size()) + " stray\n";
}

std::vector<std::string> changes(const Inspection& before, const Inspection& after) {
    std::map<std::string, const Group*> left;
    for (const Group& group : after.groups)
        left.emplace(group.begin, &group);
    std::vector<std::string> lines;
    for (const Group& group : before.groups) {
        const auto found = left.find(group.begin);
        const std::string name = "group " + group.begin + " in " + group.space;
        if (found == left.end()) {
            lines.push_back("the save dissolved " + name + ": " + group.reason);
        } else if (found->second->count < group.count) {
            lines.push_back("the save lowered the count of " + name + " from " +
                            std::to_string(group.count) + " to " +
                            std::to_string(found->second->count));
        }
    }
    return lines;
}

}  // namespace inspection
