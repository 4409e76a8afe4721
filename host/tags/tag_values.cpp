// Finding, reading and editing the values of an object's tags.
#include "host/tags/tag_values.h"

#include "host/tags/tag_walk.h"

namespace host {
namespace {

/// Where a tag is or, when it is nowhere, where it would be added.
struct Location {
    std::optional<TagPlace> tag;
    std::size_t addAt = 0;
};

Location locate(std::string_view text, const FieldPlace& place) {
    const bool wholeObject = place.subclass.empty();
    std::optional<TagPlace> anywhere;
    std::size_t last = 0, partEnd = 0;
    bool inPart = wholeObject;
    int count = 0;
    TagWalk walk(text);
    while (walk.next() && walk.zone() < TagZone::Embedded) {
        if (walk.role() == TagRole::Marker && !wholeObject) {
            if (inPart) break;  // the part is over
            inPart = trimmed(walk.value()) == place.subclass && count++ == place.occurrence;
        }
        last = walk.end();
        if (inPart) partEnd = last;
        if (walk.code() != place.code || walk.depth() > 0) continue;
        if (inPart) return {walk.place(), 0};
        if (!anywhere) anywhere = walk.place();
    }
    if (partEnd != 0) return {std::nullopt, partEnd};
    return {anywhere, last};
}

}  // namespace

std::optional<TagPlace> findTag(std::string_view text, const FieldPlace& place) {
    return locate(text, place).tag;
}

std::string_view rawTag(std::string_view text, const FieldPlace& place, std::string_view standard) {
    const auto tag = findTag(text, place);
    return tag ? tag->value : standard;
}

std::string_view textTag(std::string_view text, const FieldPlace& place,
                         std::string_view standard) {
    return trimmed(rawTag(text, place, standard));
}

int integerTag(std::string_view text, const FieldPlace& place, int standard) {
    return integerOf(rawTag(text, place), standard);
}

double realTag(std::string_view text, const FieldPlace& place, double standard) {
    return realOf(rawTag(text, place), standard);
}

std::uint64_t handleTag(std::string_view text, const FieldPlace& place) {
    return parseHandle(rawTag(text, place)).value_or(0);
}

double realOf(std::string_view value, double standard) {
    return parseReal(value).value_or(standard);
}

int integerOf(std::string_view value, int standard) {
    const std::optional<long long> number = parseInteger(value);
    if (!number || *number < -2147483647 || *number > 2147483647) return standard;
    return static_cast<int>(*number);
}

void setTag(std::string& text, const FieldPlace& place, std::string_view value) {
    const Location at = locate(text, place);
    if (at.tag) return replaceValue(text, *at.tag, value);
    std::string tag;
    addTag(tag, place.code, value);
    text.insert(at.addAt, tag);
}

void setTag(std::string& text, const FieldPlace& place, int value) {
    setTag(text, place, std::to_string(value));
}

void removeTag(std::string& text, const FieldPlace& place) {
    const auto tag = findTag(text, place);
    if (tag) text.erase(tag->begin, tag->end - tag->begin);
}

void setPointTag(std::string& text, FieldPlace place, double x, double y, double z) {
    const int code = place.code;
    for (place.code = code + 20; place.code != code; place.code -= 10)
        removeTag(text, place);
    const Location first = locate(text, place);
    const std::size_t at = first.tag ? first.tag->begin : first.addAt;
    removeTag(text, place);
    std::string tags;
    addPointTag(tags, code, x, y, z);
    text.insert(at, tags);
}

OwnTags::OwnTags(std::string_view text) {
    m_tags.reserve(24);
    TagWalk walk(text);
    while (walk.nextOwn())
        m_tags.push_back(walk.tag());
}

std::string_view OwnTags::text(int code, std::string_view standard) const {
    for (const Tag& tag : m_tags)
        if (tag.code == code) return trimmed(tag.value);
    return standard;
}

}  // namespace host
