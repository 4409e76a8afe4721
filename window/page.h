// The files of the page, which are part of the program.
#pragma once

#include <string_view>
#include <vector>

namespace window {

struct PageFile {
    std::string_view name;  ///< behind the key; empty for the page itself
    const char* type;       ///< as HTTP calls it
    std::string_view text;
};

/// Made from window/page/ when the program is built.
const std::vector<PageFile>& pageFiles();

}  // namespace window
