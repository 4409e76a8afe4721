// JSON that the program writes by itself.
#include "drafthost/reports/json_text.h"

#include "inspection/report.h"
#include "json/json.h"

namespace {

using inspection::Group;
using json::Object;
using json::Value;

std::string textOf(const Object& object) { return Value(object).inLines(); }

/// Null for a drawing that could be read.
Value reason(const std::string& why) { return why.empty() ? Value() : Value(why); }

std::string check(const std::string& file, const std::string& why, bool sound,
                  const std::vector<Object>& findings) {
    return textOf({{"file", file},
                   {"error", reason(why)},
                   {"sound", sound},
                   {"findings", Value::list(findings)}});
}

std::string layers(const std::string& file, const std::string& why,
                   const std::vector<Object>& list) {
    return textOf({{"file", file}, {"error", reason(why)}, {"layers", Value::list(list)}});
}

Value handlesOf(const Group& group, bool onlyWithoutRecord) {
    std::vector<std::string> list;
    for (const inspection::Entity& member : group.members) {
        if (!onlyWithoutRecord || !member.hasRecord) list.push_back(member.handle);
    }
    return Value::list(list);
}

Object countsOf(const Group& group, std::string inspection::Entity::*property) {
    Object counts;
    for (const auto& [name, count] : inspection::census(group, property))
        counts.add(name, count);
    return counts;
}

Object objectOf(const Group& group) {
    return {{"begin", group.begin},
            {"end", group.end},
            {"space", group.space},
            {"count", group.count},
            {"members", handlesOf(group, false)},
            {"withoutRecord", handlesOf(group, true)},
            {"types", countsOf(group, &inspection::Entity::type)},
            {"layers", countsOf(group, &inspection::Entity::layer)},
            {"extents", group.extents ? Value::list(*group.extents) : Value()},
            {"state", nameOf(group.state)},
            {"reason", group.reason},
            {"atSave", group.outlook}};
}

}  // namespace

std::string errorJson(const Options& options, const std::string& file, const std::string& why) {
    if (options.check) return check(file, why, false, {});
    if (options.layers) return layers(file, why, {});
    return groupsJson(file, {}, why);
}

std::string groupsJson(const std::string& file, const inspection::Inspection& found,
                       const std::string& why) {
    std::vector<Object> groups, strays;
    for (const Group& group : found.groups)
        groups.push_back(objectOf(group));
    for (const inspection::Stray& stray : found.strays) {
        strays.push_back({{"handle", stray.handle},
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
                   {"groups", Value::list(groups)},
                   {"strays", Value::list(strays)}});
}

std::string checkJson(const std::string& file, const std::vector<host::Finding>& findings,
                      bool sound) {
    std::vector<Object> list;
    for (const host::Finding& finding : findings) {
        const bool isError = finding.severity == host::Severity::Error;
        list.push_back({{"severity", isError ? "error" : "note"}, {"text", finding.text}});
    }
    return check(file, "", sound, list);
}

std::string layersJson(const std::string& file, const std::vector<ListedLayer>& listed) {
    std::vector<Object> list;
    for (const ListedLayer& layer : listed) {
        list.push_back({{"name", layer.name},
                        {"entities", layer.entities},
                        {"inGroups", layer.inGroups},
                        {"off", layer.off},
                        {"frozen", layer.frozen},
                        {"locked", layer.locked},
                        {"defined", layer.defined}});
    }
    return layers(file, "", list);
}
