// Tags as literals and renderings: "0 LINE|8 0|10 1.5", code, blank, value, parted by bars.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>

#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace tests {

/// Tags in stored form; a line end parts them too. A code stays as it is written.
inline std::string tagsOf(std::string literal) {
    std::replace(literal.begin(), literal.end(), '\n', '|');
    std::string text;
    std::istringstream tags(literal);
    for (std::string tag; std::getline(tags, tag, '|');) {
        if (tag.empty()) continue;
        const std::size_t blank = std::min(tag.find(' '), tag.size());
        text.append(blank < 3 ? 3 - blank : 0, ' ').append(tag, 0, blank).append("\n");
        text.append(tag.substr(std::min(blank + 1, tag.size()))).append("\n");
    }
    return text;
}

inline std::string render(std::string_view text) {
    std::string line;
    host::TagReader reader(text);
    for (host::Tag tag; reader.next(tag);) {
        line += (line.empty() ? "" : "|") + std::to_string(tag.code) + " " + std::string(tag.value);
    }
    return line;
}

/// Makes an object of any kind under an owner; in no list yet.
inline host::ObjectBody& make(host::Store& store, const std::string& literal, host::Index owner,
                              bool isEntity = true) {
    const std::string tags = tagsOf(literal);
    return store.make(host::kindOf(host::rawTag(tags, 0), tags, isEntity), tags, owner);
}

/// Makes an entity, the last one in its owner.
inline host::ObjectBody& append(host::Store& store, const std::string& literal, host::Index owner) {
    host::ObjectBody& body = make(store, literal, owner);
    store.appendChild(owner, body);
    return body;
}

/// Makes an object that is no entity.
inline host::ObjectBody& appendObject(host::Store& store, const std::string& literal,
                                      host::Index owner) {
    host::ObjectBody& body = make(store, literal, owner, false);
    store.appendChild(store.objectsList(), body);
    return body;
}

/// Gives an object's tag another value.
inline void setTag(host::ObjectBody& body, const host::FieldPlace& place, std::string_view value) {
    std::string text(body.tags());
    host::setTag(text, place, value);
    body.setTags(text);
}

}  // namespace tests
