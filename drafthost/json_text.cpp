// JSON that the program writes by itself.
#include "drafthost/json_text.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

/// Names that are no sound UTF-8 must not end the program.
std::string textOf(const Json& object) {
    return object.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

std::string errorJson(const std::string& file, const std::string& why) {
    return textOf({{"file", file}, {"error", why}});
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
