// The program drafthost: a headless drawing host on the command line.
#include <exception>
#include <new>

#include "drafthost/groups_report.h"
#include "drafthost/options.h"
#include "drafthost/output.h"
#include "drafthost/run.h"
#include "drafthost/terminal.h"

namespace {

int act(const Options& options) {
    switch (options.action) {
        case Options::Action::Version:
            writeOutput("drafthost " DRAFTHOST_VERSION "\n");
            return kDone;
        case Options::Action::Help:
            printHelp();
            return kDone;
        case Options::Action::Check:
            return checkFiles(options);
        case Options::Action::Groups:
            return listGroups(options);
        case Options::Action::Picture:
            return drawFile(options);
        case Options::Action::Run:
            break;
    }
    return runSession(options);
}

}  // namespace

int main(int count, char** values) {
    prepareStreams();
    int status = kFailed;
    try {
        Options options;
        std::string error;
        if (!parseOptions(programArguments(count, values), options, error)) {
            complain(error + "; drafthost --help lists the options");
            return kUsage;
        }
        status = act(options);
    } catch (const std::bad_alloc&) {
        complain("out of memory");
    } catch (const std::exception& failure) {
        complain(failure.what());
    }
    flushOutput();
    return outputFailed() && status == kDone ? kFailed : status;
}
