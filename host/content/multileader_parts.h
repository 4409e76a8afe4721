// The parts of a multileader's tags: which tags begin and end them.
#pragma once

#include <optional>
#include <string_view>

#include "host/text/numbers.h"

namespace host {

/// What the leader looks like stands in its context data, with a part for each leader, and in that
/// a part for each of its lines.
enum class LeaderPart { Outside, Context, Leader, Line };

/// The part that a tag with a brace leads to from another one; nothing for any other tag.
inline std::optional<LeaderPart> partBehind(LeaderPart part, int code, std::string_view value) {
    struct Brace {
        LeaderPart in;
        int code;
        std::string_view value;
        LeaderPart to;
    };
    constexpr Brace kBraces[] = {
        {LeaderPart::Outside, 300, "CONTEXT_DATA{", LeaderPart::Context},
        {LeaderPart::Context, 302, "LEADER{", LeaderPart::Leader},
        {LeaderPart::Leader, 304, "LEADER_LINE{", LeaderPart::Line},
        {LeaderPart::Line, 305, "}", LeaderPart::Leader},
        {LeaderPart::Leader, 303, "}", LeaderPart::Context},
        {LeaderPart::Context, 301, "}", LeaderPart::Outside},
    };
    for (const Brace& brace : kBraces)
        if (part == brace.in && code == brace.code && trimmed(value) == brace.value)
            return brace.to;
    return std::nullopt;
}

}  // namespace host
