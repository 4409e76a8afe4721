// What a drawing holds of the user's own, and whether its groups are sound.
#pragma once

#include <cstdlib>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "common/drafting.h"

namespace tests {

using Census = std::map<std::string, int>;

inline std::vector<std::string> wordsOf(const Drafting& drafting) {
    std::istringstream stream(drafting.order());
    return {std::istream_iterator<std::string>(stream), {}};
}

inline bool isMarker(const std::string& word) {
    return word[0] == 'b' || word.rfind("end", 0) == 0;
}

/// "line" for each main entity of model space in drawing order; empty for markers.
inline std::vector<std::string> kindsOf(const Drafting& drafting) {
    std::vector<std::string> kinds = wordsOf(drafting);
    for (std::string& kind : kinds)
        kind = isMarker(kind) ? "" : kind.substr(0, kind.find('*'));
    return kinds;
}

/// What there is of the user's own entities, by type.
inline Census censusOf(const Drafting& drafting) {
    Census census;
    for (const std::string& kind : kindsOf(drafting)) {
        if (!kind.empty()) ++census[kind];
    }
    return census;
}

/// The first group that is not sound: markers that do not name each other, or a count that is not
/// that of the entities between them. Empty when all are.
inline std::string unsoundGroup(const std::vector<std::string>& words) {
    int expected = -1;
    int between = 0;
    for (const std::string& word : words) {
        if (word.find('?') != word.npos) return word;
        if (word[0] == 'b') {
            if (expected >= 0) return "begin inside a group";
            expected = std::atoi(word.c_str() + 6);
            between = 0;
        } else if (word == "end") {
            if (between != expected) return "end of " + std::to_string(expected);
            expected = -1;
        } else {
            ++between;
        }
    }
    return expected >= 0 ? "begin without end" : "";
}
inline std::string unsoundGroup(const Drafting& drafting) {
    return unsoundGroup(wordsOf(drafting));
}

}  // namespace tests
