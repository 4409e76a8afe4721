// Groups as literals and renderings: "0 LINE|8 0|10 1.5", code, blank, value, parted by bars.
#pragma once

#include <sstream>
#include <string>
#include <string_view>

#include "host/tags/tags.h"

namespace tests {

inline std::string storedGroups(const std::string& literal) {
    std::string text;
    std::istringstream groups(literal);
    for (std::string group; std::getline(groups, group, '|');) {
        const std::size_t blank = group.find(' ');
        const std::string value = blank == group.npos ? "" : group.substr(blank + 1);
        host::addTag(text, std::stoi(group.substr(0, blank)), std::string_view(value));
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

}  // namespace tests
