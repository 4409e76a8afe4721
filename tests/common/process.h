// What tests ask of the system they run on: environment variables and shell commands.
#pragma once

#include <string>

/// Sets a variable of this process's environment; null removes it.
void setVariable(const char* name, const char* value);
/// Runs a command line of the system's own shell; its exit status, -1 when there is none.
int runShell(const std::string& command);
