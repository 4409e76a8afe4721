// Per-user switches of the module, which it reads from the registry.
#pragma once

#include <cstdint>
#include <string>

/// Sets a switch for this run. False, with the reason, when it cannot be set.
bool setModuleSwitch(const std::string& name, std::uint32_t value, std::string& error);
