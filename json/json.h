// JSON to send and to read. The library behind it takes longer to compile than a room of the host,
// so json.cpp alone includes it.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

namespace json {

class Object;

/// A value as its text, without blanks. In a string, what is no sound UTF-8 becomes U+FFFD.
class Value {
  public:
    Value() : m_text("null") {}
    Value(double value);  ///< in as few digits as read back the same
    Value(const std::string& text);
    Value(const char* text) : Value(std::string(text)) {}
    Value(const Object& object);
    template <typename T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
    Value(T value) {
        if constexpr (std::is_same_v<T, bool>)
            m_text = value ? "true" : "false";
        else
            m_text = std::to_string(value);
    }
    /// A list of anything that values are made of.
    template <typename List>
    static Value list(const List& values) {
        std::string inside;
        for (const auto& value : values)
            inside += (inside.empty() ? "" : ",") + Value(value).text();
        return ofText('[' + inside + ']');
    }
    /// What has been written already.
    static Value ofText(std::string text) {
        Value value;
        value.m_text = std::move(text);
        return value;
    }

    const std::string& text() const { return m_text; }
    /// For people: a line for each member, two blanks deeper each level.
    std::string inLines() const;

  private:
    std::string m_text;
};

struct Member {
    std::string name;
    Value value;
};

/// Members in the order in which they came.
class Object {
  public:
    Object() = default;
    Object(std::initializer_list<Member> members) {
        for (const Member& member : members)
            add(member.name, member.value);
    }
    Object& add(const std::string& name, const Value& value);
    /// All members of another.
    Object& add(const Object& others);
    std::string text() const { return '{' + m_members + '}'; }

  private:
    std::string m_members;
};

/// Says what a request lacks.
struct Lacking : std::runtime_error {
    using runtime_error::runtime_error;
};

/// The texts, numbers and flags of an object that somebody has sent, without its other members.
class Request {
  public:
    /// Nothing when that is no object.
    static std::optional<Request> parse(const std::string& text);

    /// A member of that name and kind. Without one it is the other value, or Lacking is thrown.
    const std::string& text(const char* name) const { return member<std::string>(name, "text"); }
    double number(const char* name) const { return member<double>(name, "number"); }
    bool flag(const char* name) const { return member<bool>(name, "flag"); }
    std::string text(const char* name, const char* otherwise) const {
        return m_members.count(name) != 0 ? text(name) : otherwise;
    }
    bool flag(const char* name, bool otherwise) const {
        return m_members.count(name) != 0 ? flag(name) : otherwise;
    }

  private:
    template <typename T>
    const T& member(const char* name, const char* kind) const {
        const auto found = m_members.find(name);
        const T* value = found != m_members.end() ? std::get_if<T>(&found->second) : nullptr;
        if (value == nullptr) throw Lacking(std::string("a ") + kind + " called " + name);
        return *value;
    }
    std::map<std::string, std::variant<bool, double, std::string>, std::less<>> m_members;
};

}  // namespace json
