// Per-user switches on Windows: the registry is the user's own and is left alone.
#include "drafthost/module_switches.h"

bool setModuleSwitch(const std::string& name, std::uint32_t, std::string& error) {
    error = "--registry " + name + ": set the value with the system's registry editor";
    return false;
}
