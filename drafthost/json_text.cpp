// JSON that the program writes by itself.
#include "drafthost/json_text.h"

#include <nlohmann/json.hpp>

#include "inspection/report.h"

namespace {

using inspection::Group;
using Json = nlohmann::ordered_json;

/// Names that are no sound UTF-8 must not end the program.
std::string textOf(const Json& object) {
    return object.dump(2, ' ', false, Json::error_handler_t::replace);
}

Json handlesOf(const Group& group, bool onlyWithoutRecord) {
    Json list = Json::array();
    for (const inspection::Entity& member : group.members) {
        if (!onlyWithoutRecord || !member.hasRecord) list.push_back(member.handle);
    }
    return list;
}

Json jsonOf(const Group& group) {
    Json object = {{"begin", group.begin},
                   {"end", group.end},
                   {"space", group.space},
                   {"count", group.count},
                   {"members", handlesOf(group, false)},
                   {"withoutRecord", handlesOf(group, true)},
                   {"types", census(group, &inspection::Entity::type)},
                   {"layers", census(group, &inspection::Entity::layer)}};
    object["extents"] = group.extents ? Json(*group.extents) : Json();
    object["state"] = nameOf(group.state);
    object["reason"] = group.reason;
    object["atSave"] = group.outlook;
    return object;
}

}  // namespace

std::string errorJson(const std::string& file, const std::string& why) {
    return textOf({{"file", file}, {"error", why}});
}

std::string groupsJson(const std::string& file, const inspection::Inspection& found) {
    Json groups = Json::array();
    for (const Group& group : found.groups)
        groups.push_back(jsonOf(group));
    Json strays = Json::array();
    for (const inspection::Stray& stray : found.strays) {
        strays.push_back(Json{{"handle", stray.handle},
                              {"type", stray.type},
                              {"what", stray.what},
                              {"space", stray.space},
                              {"reason", stray.reason}});
    }
    return textOf({{"file", file},
                   {"prefix", found.prefix},
                   {"whole", found.whole()},
                   {"notWhole", static_cast<long>(found.groups.size()) - found.whole()},
                   {"groups", std::move(groups)},
                   {"strays", std::move(strays)}});
}

std::string checkJson(const std::string& file, const std::vector<host::Finding>& findings,
                      bool sound) {
    Json list = Json::array();
    for (const host::Finding& finding : findings) {
        const bool isError = finding.severity == host::Severity::Error;
        list.push_back(Json{{"severity", isError ? "error" : "note"}, {"text", finding.text}});
    }
    return textOf({{"file", file}, {"sound", sound}, {"findings", std::move(list)}});
}
