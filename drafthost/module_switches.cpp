// Per-user switches, in a registry that only this run sees.
#include "drafthost/module_switches.h"

#include "host/control/windows_setup.h"
#include "host/text/text_codec.h"

namespace {

struct PutBack {
    ~PutBack() { host::resetWindows(); }
};

}  // namespace

bool setModuleSwitch(const std::string& name, std::uint32_t value, std::string& error) {
    const bool set = host::setRegistryDword(host::moduleRegistryKey(), host::fromUtf8(name), value);
    static const PutBack atEnd;  // made behind what it puts back, so it ends first
    if (!set) error = "--registry " + name + ": Windows does not let the value be written";
    return set;
}
