// Environment and shell of Windows.
#include <cstdlib>

#include "common/process.h"

void setVariable(const char* name, const char* value) {
    _putenv_s(name, value != nullptr ? value : "");
}

int runShell(const std::string& command) {
    // The command interpreter takes off the outermost quotes.
    return std::system(("\"" + command + "\"").c_str());
}
