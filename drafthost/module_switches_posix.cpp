// Per-user switches in the stood-in registry.
#include "drafthost/module_switches.h"

#include "host/control/windows_setup.h"
#include "host/text/text_codec.h"

bool setModuleSwitch(const std::string& name, std::uint32_t value, std::string&) {
    host::setRegistryDword(host::moduleRegistryKey(), host::fromUtf8(name), value);
    return true;
}
