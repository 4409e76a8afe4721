// The session of a drawing in the browser: address, Ctrl+C, and what the page wants to know.
#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/prompt/window_job.h"
#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
#include "window/window.h"

namespace {

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

void printAddress(const std::string& address) {
    writeOutput(address + "\n");
    flushOutput();
}

/// Once it was seen, a load or save that the page asks for runs to its end.
bool takeInterrupt() {
    const bool pressed = interruptRequested();
    if (pressed) forgetInterrupts();
    return pressed;
}

}  // namespace

const char* missingForWindow() { return ""; }

int runWindow(host::Session& session, const Options& options) {
    window::Setup setup;
    setup.reader = {namedSpaces,
                    [](AcDbDatabase& drawing) { return inspectDrawing(drawing, false); }};
    setup.greeting = "drafthost " DRAFTHOST_VERSION "; ? lists the commands";
    setup.opensBrowser = !options.noBrowser;
    setup.ready = printAddress;
    setup.tell = complain;
    setup.takeInterrupt = takeInterrupt;
    switch (window::run(session, setup)) {
        case window::End::NoPort:
            complain("--window: no port of 127.0.0.1 is free");
            return kFailed;
        case window::End::Interrupted:
            return kInterrupted;
        default:
            return session.exitStatus;
    }
}
