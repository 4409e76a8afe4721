// Reading and changing the tags of one object by position.
#include "host/tags/tag_edit.h"

#include <cmath>

#include "host/tags/tag_walk.h"

namespace host {

TagEdit::TagEdit(std::string_view text) {
    TagWalk walk(text);
    while (walk.next()) {
        const bool own = walk.own() && walk.role() != TagRole::Marker;
        m_tags.push_back({walk.code(), walk.value(), own, false, false, {}, {}});
    }
}

std::optional<std::size_t> TagEdit::find(int code) const {
    for (std::size_t at = 0; at < size(); ++at) {
        if (m_tags[at].own && m_tags[at].code == code) return at;
    }
    return std::nullopt;
}

double TagEdit::real(std::size_t at) {
    const std::optional<double> value = parseReal(m_tags[at].value);
    if (value) return *value;
    if (!m_malformed) m_malformed = m_tags[at].code;
    return 0.0;
}

std::optional<std::size_t> TagEdit::coordinate(std::size_t at, int shift) const {
    const int first = m_tags[at].code;
    for (std::size_t next = at + 1; next < size() && m_tags[next].code != first; ++next) {
        if (m_tags[next].own != m_tags[at].own) continue;
        if (m_tags[next].code == first + shift) return next;
    }
    return std::nullopt;
}

Vec TagEdit::point(std::size_t at) {
    const auto y = coordinate(at, 10);
    const auto z = coordinate(at, 20);
    return {real(at), y ? real(*y) : 0.0, z ? real(*z) : 0.0};
}

void TagEdit::set(std::size_t at, double number) {
    EditedTag& tag = m_tags[at];
    if (!std::isfinite(number) && !m_malformed) m_malformed = tag.code;
    // A tag whose number stays keeps its spelling too.
    if (!tag.changed && parseReal(tag.value) == number) return;
    tag.changed = true;
    tag.changedTo = formatReal(number == 0.0 ? 0.0 : number);  // never -0
}

void TagEdit::set(std::size_t at, int number) {
    m_tags[at].changed = true;
    m_tags[at].changedTo = std::to_string(number);
}

void TagEdit::setPoint(std::size_t at, const Vec& point) {
    set(at, point.x);
    std::size_t last = at;
    const double values[] = {point.y, point.z};
    for (int shift : {10, 20}) {
        const double value = values[shift / 10 - 1];
        if (const auto place = coordinate(at, shift)) {
            set(*place, value);
            last = *place;
        } else if (value != 0.0) {
            std::string tag;
            addTag(tag, m_tags[at].code + shift, value);
            addBehind(last, tag);
        }
    }
}

void TagEdit::addBehind(std::size_t at, std::string_view tags) { m_tags[at].behind += tags; }

std::string TagEdit::tags() const {
    std::string text;
    for (const EditedTag& tag : m_tags) {
        if (!tag.removed)
            addTag(text, tag.code, tag.changed ? std::string_view(tag.changedTo) : tag.value);
        text += tag.behind;
    }
    return text;
}

}  // namespace host
