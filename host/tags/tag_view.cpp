// Splits an entity's stored text into the tags that describe it.
#include "host/tags/tag_view.h"

#include <cmath>

namespace host {

OwnTags::OwnTags(std::string_view text) {
    m_tags.reserve(24);
    TagWalk walk(text);
    while (walk.nextOwn())
        m_tags.push_back(walk.tag());
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
