// Per-user switches on Windows: in a registry that only this run sees; the user's stays as it is.
#include "drafthost/module_switches.h"
#include "host/control/windows_setup.h"
#include "host/text/text_codec.h"

namespace {

struct PutBack {
    ~PutBack() { host::resetWindows(); }
};

}  // namespace

bool setModuleSwitch(const std::string& name, std::uint32_t value, std::string& error) {
    static const PutBack atEnd;
    if (host::setRegistryDword(host::moduleRegistryKey(), host::fromUtf8(name), value)) return true;
    error = "--registry " + name + ": Windows does not let the value be written";
    return false;
}
