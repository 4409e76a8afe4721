// Which requests are let in at all.
#pragma once

#include <string>

namespace window {

/// What a request says of itself; an empty text for a header that it lacks.
struct Visitor {
    std::string path, host, origin, site;
};

/// A key of 128 random bits in hexadecimal.
std::string randomKey();
/// Why a request is refused, as one line; empty when it may come in. Its path has to begin with the
/// key. The host has to be this machine by its own name, or a page elsewhere could have the browser
/// take it for its own; the port may be another one, as a tunnel gives it another. An origin has to
/// be that host.
std::string refusal(const Visitor& visitor, const std::string& key);
/// What stands behind "/KEY/" in a path that was let in.
std::string behindKey(const std::string& path, const std::string& key);

}  // namespace window
