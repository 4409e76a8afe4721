// The session of a drawing in the browser: address, Ctrl+C, and what the page wants to know.
#include "drafthost/window_job.h"

#include <unistd.h>

#include <csignal>

#include "drafthost/drawing_inspection.h"
#include "drafthost/output.h"
#include "drafthost/process.h"
#include "host/control/effects.h"
#include "host/text/text_codec.h"
#include "window/window.h"

namespace {

volatile std::sig_atomic_t windowInterrupts = 0;

/// The session looks at the first two when it waits; a command that never ends leaves the third.
void onWindowInterrupt(int) {
    windowInterrupts = windowInterrupts + 1;
    if (windowInterrupts > 2) _exit(kInterrupted);
}

void catchWindowInterrupts() {
    struct sigaction action = {};
    action.sa_handler = onWindowInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
}

std::vector<std::pair<host::Index, std::string>> namedSpaces(const host::Store& store) {
    std::vector<std::pair<host::Index, std::string>> spaces;
    for (const host::Index space : spacesOf(store)) {
        std::string name = spaceName(store, space);
        // What is in no layout is called like model space; nobody gets to see it.
        const bool isHidden = space != store.modelSpace() && space != store.currentSpace() &&
                              name == spaceName(store, store.modelSpace());
        if (!isHidden) spaces.emplace_back(space, std::move(name));
    }
    return spaces;
}

}  // namespace

const char* missingForWindow() { return ""; }

int runWindow(host::Session& session, const Options& options) {
    catchWindowInterrupts();
    session.setProgress([](const char* what, int percent) {
        return showProgress(what, percent) || windowInterrupts < 2;
    });
    window::Setup setup;
    setup.reader = {namedSpaces,
                    [](AcDbDatabase& drawing) { return inspectDrawing(drawing, false); }};
    setup.greeting = "drafthost " DRAFTHOST_VERSION "; ? lists the commands";
    setup.opensBrowser = !options.noBrowser;
    setup.ready = [](const std::string& address) {
        writeOutput(address + "\n");
        flushOutput();
    };
    setup.tell = complain;
    setup.interrupts = [] { return static_cast<int>(windowInterrupts); };
    const bool ran = window::run(session, setup);
    if (!ran) complain("no port of 127.0.0.1 is free for the window");
    session.setProgress(showProgress);
    if (!ran) return kFailed;
    return windowInterrupts > 0 ? static_cast<int>(kInterrupted) : session.exitStatus();
}
