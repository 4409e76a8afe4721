// JSON by the library.
#include "json/json.h"

#include <nlohmann/json.hpp>

namespace json {
namespace {

using Parsed = nlohmann::ordered_json;

std::string textOf(const Parsed& value, int indent = -1) {
    return value.dump(indent, ' ', false, Parsed::error_handler_t::replace);
}

}  // namespace

Value::Value(double value) : m_text(textOf(value)) {}
Value::Value(const std::string& text) : m_text(textOf(text)) {}
Value::Value(const Object& object) : m_text(object.text()) {}

std::string Value::inLines() const { return textOf(Parsed::parse(m_text), 2); }

Object& Object::add(const std::string& name, const Value& value) {
    m_members += (m_members.empty() ? "" : ",") + textOf(name) + ':' + value.text();
    return *this;
}

Object& Object::add(const Object& others) {
    if (!m_members.empty() && !others.m_members.empty()) m_members += ',';
    m_members += others.m_members;
    return *this;
}

std::optional<Request> Request::parse(const std::string& text) {
    const Parsed parsed = Parsed::parse(text, nullptr, false);
    if (!parsed.is_object()) return std::nullopt;
    Request request;
    for (const auto& [name, value] : parsed.items()) {
        if (value.is_string()) request.m_members[name] = value.get<std::string>();
        if (value.is_number()) request.m_members[name] = value.get<double>();
        if (value.is_boolean()) request.m_members[name] = value.get<bool>();
    }
    return request;
}

}  // namespace json
