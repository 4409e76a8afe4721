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

/// Null for a drawing that could be read.
Json reason(const std::string& why) { return why.empty() ? Json() : Json(why); }

std::string check(const std::string& file, const std::string& why, bool sound, Json findings) {
    return textOf({{"file", file},
                   {"error", reason(why)},
                   {"sound", sound},
                   {"findings", std::move(findings)}});
}

std::string layers(const std::string& file, const std::string& why, Json list) {
    return textOf({{"file", file}, {"error", reason(why)}, {"layers", std::move(list)}});
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

std::string errorJson(const Options& options, const std::string& file, const std::string& why) {
    if (options.check) return check(file, why, false, Json::array());
    if (options.layers) return layers(file, why, Json::array());
    return groupsJson(file, {}, why);
}

std::string groupsJson(const std::string& file, const inspection::Inspection& found,
                       const std::string& why) {
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
                   {"error", reason(why)},
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
    return check(file, "", sound, std::move(list));
}

std::string layersJson(const std::string& file, const std::vector<ListedLayer>& listed) {
    Json list = Json::array();
    for (const ListedLayer& layer : listed) {
        list.push_back(Json{{"name", layer.name},
                            {"entities", layer.entities},
                            {"inGroups", layer.inGroups},
                            {"off", layer.off},
                            {"frozen", layer.frozen},
                            {"locked", layer.locked},
                            {"defined", layer.defined}});
    }
    return layers(file, "", std::move(list));
}
