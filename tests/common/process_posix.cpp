// Environment and shell of Linux.
#include <sys/wait.h>

#include <cstdlib>

#include "common/process.h"

void setVariable(const char* name, const char* value) {
    if (value != nullptr) {
        setenv(name, value, 1);
    } else {
        unsetenv(name);
    }
}

int runShell(const std::string& command) {
    const int result = std::system(command.c_str());
    return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
}
