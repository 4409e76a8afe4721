// The program drafthost: a headless drawing host on the command line.
#include <exception>
#include <new>

#include "drafthost/check_report.h"
#include "drafthost/groups_report.h"
#include "drafthost/options.h"
#include "drafthost/output.h"
#include "drafthost/process.h"
#include "drafthost/run.h"

namespace {

int act(const Options& options) {
    writeOutput(options.information);
    if (!options.information.empty()) return kDone;
    const bool reads = options.check || options.groups || !options.picture.empty();
    if (reads) catchInterrupts();
    if (options.check) return checkFiles(options);
    if (options.groups) return listGroups(options);
    return options.picture.empty() ? runSession(options) : drawFile(options);
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
