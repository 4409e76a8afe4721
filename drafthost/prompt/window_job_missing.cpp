// A build without the window.
#include "drafthost/prompt/window_job.h"

const char* missingForWindow() {
    return "this build has no window: it needs Linux and cpp-httplib (Debian: libcpp-httplib-dev) "
           "when it is built";
}

int runWindow(host::Session&, const Options&) { return kUsage; }
