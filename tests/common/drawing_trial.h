// Tries the host on a drawing that may be damaged in any way.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/dxf/load/finding.h"
#include "host/store/store.h"

namespace trial {

/// What the host did with a drawing.
struct Trial {
    bool loaded = false;
    bool clean = false;   ///< loaded, and neither the check nor the loading found anything
    std::string message;  ///< why it was not loaded
    long line = 0;        ///< where, from 1; 0 when that is no line
    std::string fault;    ///< what the host did wrong; empty when it kept the rules below
};

/// Loads a drawing from DXF text in files of `folder`, which has to exist. The rules: a drawing
/// that is refused is refused in one clear line that says what to do. One that loads can be checked
/// and saved; what was saved loads, has what was supplied in it, checks alike and saves to equal
/// bytes.
Trial tryDrawing(std::string_view text, const std::string& folder);

/// The same rules from the check on, for a drawing with what the check found in it; the fault.
std::string faultOfDrawing(host::Store& store, const std::vector<host::Finding>& findings,
                           const std::string& folder);

/// True for a short line of printable, well-formed text.
bool isClearLine(const std::string& text);

}  // namespace trial
