// JSON that the program writes by itself.
#include "drafthost/json_text.h"

#include <nlohmann/json.hpp>

#include "inspection/report.h"

namespace {

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

}  // namespace

std::string errorJson(const Options& options, const std::string& file, const std::string& why) {
    if (options.check) return check(file, why, false, Json::array());
    if (options.layers) return layers(file, why, Json::array());
    return inspection::listJson(file, {}, why);
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
