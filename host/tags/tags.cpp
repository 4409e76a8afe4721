// DXF tags as text: reading, writing, number forms and searches.
#include "host/tags/tags.h"

#include <charconv>

#include "host/tags/tag_walk.h"

namespace host {

void addTag(std::string& text, int code, std::string_view value) {
    char digits[16];
    const char* end = std::to_chars(digits, digits + sizeof digits, code).ptr;
    const std::size_t length = static_cast<std::size_t>(end - digits);
    if (length < 3) text.append(3 - length, ' ');
    text.append(digits, length).append(1, '\n').append(value).append(1, '\n');
}

std::string storedTags(std::initializer_list<Tag> tags) {
    std::string text;
    for (const Tag& tag : tags)
        addTag(text, tag.code, tag.value);
    return text;
}

void addTag(std::string& text, int code, double value) { addTag(text, code, formatReal(value)); }

void addTag(std::string& text, int code, int value) {
    char digits[16];
    const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    addTag(text, code, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

void addHandleTag(std::string& text, int code, std::uint64_t handle) {
    addTag(text, code, formatHandle(handle));
}

void addPointTag(std::string& text, int code, double x, double y, double z) {
    addTag(text, code, x);
    addTag(text, code + 10, y);
    addTag(text, code + 20, z);
}

std::optional<std::string_view> subclassPart(std::string_view text, std::string_view subclass) {
    TagWalk walk(text);
    bool found = subclass.empty();
    std::size_t begin = 0;
    while (walk.next()) {
        if (walk.role() != TagRole::Marker) continue;
        if (found) return text.substr(begin, walk.begin() - begin);
        found = trimmed(walk.value()) == subclass;
        begin = walk.begin();
    }
    if (!found) return std::nullopt;
    return text.substr(begin);
}

void replaceValue(std::string& text, const TagPlace& place, std::string_view value) {
    const std::size_t codeEnd = text.find('\n', place.begin);
    // The value may be a part of the text that is being changed.
    const std::string copy(value);
    text.replace(codeEnd + 1, place.end - codeEnd - 1, copy + '\n');
}

}  // namespace host
