// Groups for the list of a page.
#include "window/groups.h"

#include <map>
#include <utility>

#include "host/store/store.h"

namespace window {
namespace {

/// "20 LINE, 12 ARC"
std::string contentOf(const inspection::Group& group) {
    std::map<std::string, int> counts;
    for (const inspection::Entity& member : group.members)
        ++counts[member.type];
    std::string text;
    for (const auto& [type, count] : counts)
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + type;
    return text;
}

}  // namespace

void Groups::set(inspection::Inspection found) {
    m_found = std::move(found);
    m_places.clear();
    for (std::size_t i = 0; i < m_found.groups.size(); ++i) {
        for (std::size_t k = 0; k < m_found.groups[i].members.size(); ++k)
            m_places[m_found.groups[i].members[k].id.asWord()] = {i, k};
    }
}

json::Object Groups::list() const {
    std::vector<json::Object> groups;
    std::vector<std::string> strays;
    for (const inspection::Group& group : m_found.groups) {
        groups.push_back({{"begin", group.begin},
                          {"space", group.space},
                          {"verdict", inspection::nameOf(group.state)},
                          {"members", group.members.size()},
                          {"what", contentOf(group)},
                          {"reason", group.reason},
                          {"outlook", group.outlook}});
    }
    for (const inspection::Stray& stray : m_found.strays)
        strays.push_back("stray " + stray.what + " " + stray.handle + " in " + stray.space + ": " +
                         stray.reason);
    return {{"groups", json::Value::list(groups)}, {"strays", json::Value::list(strays)}};
}

const inspection::Group* Groups::of(AcDbObjectId entity) const {
    const auto place = m_places.find(entity.asWord());
    return place != m_places.end() ? &m_found.groups[place->second.group] : nullptr;
}

const inspection::Group* Groups::beginningAt(const std::string& handle) const {
    for (const inspection::Group& group : m_found.groups) {
        if (group.begin == handle) return &group;
    }
    return nullptr;
}

std::vector<std::string> Groups::selectedBy(AcDbObjectId entity) const {
    const auto place = m_places.find(entity.asWord());
    if (place == m_places.end()) return {};
    const inspection::Group& group = m_found.groups[place->second.group];
    const bool walks =
        group.state == inspection::State::Whole || group.state == inspection::State::Short;
    std::vector<std::string> handles;
    if (!walks || !group.members[place->second.member].hasRecord) return handles;
    for (const inspection::Entity& member : group.members)
        handles.push_back(member.handle);
    return handles;
}

}  // namespace window
