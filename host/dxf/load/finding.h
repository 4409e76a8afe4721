// One result of checking a drawing.
#pragma once

#include <cstdint>
#include <string>

namespace host {

/// Damage, or something unusual that harms nothing.
enum class Severity { Error, Note };

/// What is wrong with one object, or with the drawing as a whole.
struct Finding {
    Severity severity = Severity::Error;
    std::uint64_t handle = 0;  ///< 0 when the finding belongs to no object
    std::string text;          ///< names the object itself: "LINE 2A: ..."

    bool operator==(const Finding& other) const {
        return severity == other.severity && handle == other.handle && text == other.text;
    }
};

}  // namespace host
