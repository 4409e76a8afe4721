// Checks of key, host and origin.
#include "window/admission.h"

#include <algorithm>
#include <random>

namespace window {
namespace {

/// Takes as long for a wrong text as for the right one of the same length.
bool sameText(const std::string& a, const std::string& b) {
    unsigned differing = a.size() == b.size() ? 0 : 1;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
        differing |= static_cast<unsigned char>(a[i]) ^ static_cast<unsigned char>(b[i]);
    return differing == 0;
}

bool isThisMachine(const std::string& host) {
    const std::size_t colon = host.find_last_of(':');
    const std::string port = colon == std::string::npos ? "" : host.substr(colon + 1);
    const bool isPort = port.size() <= 5 && std::all_of(port.begin(), port.end(), [](char c) {
                            return c >= '0' && c <= '9';
                        });
    const std::string name = host.substr(0, colon);
    return isPort && (name == "127.0.0.1" || name == "localhost");
}

}  // namespace

std::string randomKey() {
    constexpr int kBytes = 16;
    std::random_device device;  // the system's generator
    std::string key;
    for (int i = 0; i < kBytes; ++i) {
        const unsigned byte = device() & 0xff;
        for (const unsigned digit : {byte >> 4, byte & 15})
            key += "0123456789abcdef"[digit];
    }
    return key;
}

std::string refusal(const Visitor& visitor, const std::string& key) {
    if (!isThisMachine(visitor.host)) return "this machine is 127.0.0.1 or localhost";
    if (!visitor.origin.empty() && visitor.origin != "http://" + visitor.host)
        return "the request comes from a page of another origin";
    if (!visitor.site.empty() && visitor.site != "same-origin" && visitor.site != "none")
        return "the request comes from a page of another site";
    const std::string begin = visitor.path.substr(0, key.size() + 2);
    if (!sameText(begin, "/" + key + "/"))
        return "the key in the address is wrong: the terminal shows the whole address";
    return {};
}

std::string behindKey(const std::string& path, const std::string& key) {
    return path.substr(key.size() + 2);
}

}  // namespace window
