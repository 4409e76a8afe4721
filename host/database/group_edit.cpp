// Reading and changing the groups of one object by position.
#include "host/database/group_edit.h"

#include <cmath>

#include "host/database/tags.h"

namespace host {

GroupEdit::GroupEdit(std::string_view text) {
    TagReader reader(text);
    Tag tag;
    bool inBrackets = false;
    bool behindOwn = false;
    while (reader.next(tag)) {
        if (tag.code >= 1000 || tag.code == 101) behindOwn = true;
        const bool opens = tag.code == 102 && !tag.value.empty() && tag.value[0] == '{';
        if (opens) inBrackets = true;
        const bool marker = tag.code == 100 || tag.code == 102;
        m_groups.push_back(
            {tag.code, tag.value, !inBrackets && !behindOwn && !marker, false, false, {}, {}});
        if (tag.code == 102 && !opens) inBrackets = false;
    }
}

std::optional<std::size_t> GroupEdit::find(int code) const {
    for (std::size_t at = 0; at < size(); ++at) {
        if (m_groups[at].own && m_groups[at].code == code) return at;
    }
    return std::nullopt;
}

double GroupEdit::real(std::size_t at) {
    const std::optional<double> value = parseReal(m_groups[at].value);
    if (value && std::isfinite(*value)) return *value;
    if (!m_malformed) m_malformed = m_groups[at].code;
    return 0.0;
}

double GroupEdit::real(int code, double otherwise) {
    const auto at = find(code);
    return at ? real(*at) : otherwise;
}

int GroupEdit::integer(int code, int otherwise) const {
    const auto at = find(code);
    const auto value = at ? parseInteger(m_groups[*at].value) : std::nullopt;
    return value && std::llabs(*value) <= INT32_MAX ? static_cast<int>(*value) : otherwise;
}

std::optional<std::size_t> GroupEdit::coordinate(std::size_t at, int shift) const {
    const int first = m_groups[at].code;
    for (std::size_t next = at + 1; next < size() && m_groups[next].code != first; ++next) {
        if (m_groups[next].own != m_groups[at].own) continue;
        if (m_groups[next].code == first + shift) return next;
    }
    return std::nullopt;
}

Vec GroupEdit::point(std::size_t at) {
    const auto y = coordinate(at, 10);
    const auto z = coordinate(at, 20);
    return {real(at), y ? real(*y) : 0.0, z ? real(*z) : 0.0};
}

void GroupEdit::set(std::size_t at, double number) {
    Group& group = m_groups[at];
    if (!std::isfinite(number) && !m_malformed) m_malformed = group.code;
    // A group whose number stays keeps its spelling too.
    if (!group.changed && parseReal(group.value) == number) return;
    group.changed = true;
    group.changedTo = formatReal(number == 0.0 ? 0.0 : number);  // never -0
}

void GroupEdit::set(std::size_t at, int number) {
    m_groups[at].changed = true;
    m_groups[at].changedTo = std::to_string(number);
}

void GroupEdit::set(std::size_t at, std::string_view value) {
    m_groups[at].changed = true;
    m_groups[at].changedTo = value;
}

void GroupEdit::setPoint(std::size_t at, const Vec& point) {
    set(at, point.x);
    std::size_t last = at;
    const double values[] = {point.y, point.z};
    for (int shift : {10, 20}) {
        const double value = values[shift / 10 - 1];
        if (const auto place = coordinate(at, shift)) {
            set(*place, value);
            last = *place;
        } else if (value != 0.0) {
            std::string group;
            addTag(group, m_groups[at].code + shift, value);
            addBehind(last, group);
        }
    }
}

void GroupEdit::addBehind(std::size_t at, std::string_view groups) {
    m_groups[at].behind += groups;
}

std::string GroupEdit::text() const {
    std::string text;
    for (const Group& group : m_groups) {
        if (!group.removed)
            addTag(text, group.code,
                   group.changed ? std::string_view(group.changedTo) : group.value);
        text += group.behind;
    }
    return text;
}

}  // namespace host
