// The program drafthost: a headless drawing host on the command line.
#include <exception>
#include <new>

#include "drafthost/batch.h"
#include "drafthost/check_report.h"
#include "drafthost/groups_report.h"
#include "drafthost/layers_report.h"
#include "drafthost/options.h"
#include "drafthost/output.h"
#include "drafthost/process.h"
#include "drafthost/run.h"
#include "host/text/paths.h"

namespace {

int act(const Options& options) {
    writeOutput(options.information);
    if (!options.information.empty()) return kDone;
    const bool reads =
        options.check || options.groups || options.layers || !options.picture.empty();
    if (reads) catchInterrupts();
    const auto forEach = [&](int (*work)(const Options&, const std::string& file)) {
        return runBatch(options, [&](const std::string& file) { return work(options, file); });
    };
    if (options.check) return forEach(checkFile);
    if (options.groups) return forEach(listGroups);
    if (options.layers) return forEach(listLayers);
    return options.picture.empty() ? runSession(options) : drawFiles(options);
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
        for (std::string& file : options.files)
            file = host::drawingPath(file);
        status = act(options);
    } catch (const std::bad_alloc&) {
        complain("out of memory");
    } catch (const std::exception& failure) {
        complain(failure.what());
    }
    flushOutput();
    return outputFailed() && status == kDone ? kFailed : status;
}
