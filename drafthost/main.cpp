// The program drafthost: a headless drawing host on the command line.
#include <exception>
#include <new>

#include "drafthost/options.h"
#include "drafthost/output.h"
#include "drafthost/run.h"
#include "drafthost/terminal.h"

namespace {

int act(const Options& options) {
    writeOutput(options.information);
    if (!options.information.empty()) return kDone;
    return options.check ? checkFiles(options) : runSession(options);
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
