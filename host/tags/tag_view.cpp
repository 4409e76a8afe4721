// Splits an entity's stored text into the tags that describe it.
#include "host/tags/tag_view.h"

#include <cmath>

namespace host {

bool OwnTagReader::next(Tag& tag) {
    while (m_reader.next(tag) && tag.code < 1000 && tag.code != 101) {
        if (tag.code == 102) {
            const std::string_view value = trimmed(tag.value);
            if (!value.empty() && value.front() == '{') ++m_depth;
            if (value == "}" && m_depth > 0) --m_depth;
        } else if (m_depth == 0) {
            return true;
        }
    }
    return false;
}

OwnTags::OwnTags(std::string_view text) {
    m_tags.reserve(24);
    OwnTagReader reader(text);
    Tag tag;
    while (reader.next(tag))
        m_tags.push_back(tag);
}

const Tag* OwnTags::find(int code) const {
    for (const Tag& tag : m_tags) {
        if (tag.code == code) return &tag;
    }
    return nullptr;
}

std::string_view OwnTags::text(int code, std::string_view standard) const {
    const Tag* tag = find(code);
    return tag == nullptr ? standard : trimmed(tag->value);
}

double OwnTags::real(int code, double standard) const {
    const Tag* tag = find(code);
    return tag == nullptr ? standard : realOf(tag->value, standard);
}

int OwnTags::integer(int code, int standard) const {
    const Tag* tag = find(code);
    return tag == nullptr ? standard : integerOf(tag->value, standard);
}

bool OwnTags::has(int code) const { return find(code) != nullptr; }

double realOf(std::string_view value, double standard) {
    const std::optional<double> number = parseReal(value);
    return number && std::isfinite(*number) ? *number : standard;
}

int integerOf(std::string_view value, int standard) {
    const std::optional<long long> number = parseInteger(value);
    if (!number || *number < -2147483647 || *number > 2147483647) return standard;
    return static_cast<int>(*number);
}

}  // namespace host
