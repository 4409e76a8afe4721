// The program drafthost: a headless drawing host on the command line.
#include <exception>
#include <new>

#include "drafthost/batch.h"
#include "drafthost/options.h"
#include "drafthost/reports/check_report.h"
#include "drafthost/reports/groups_report.h"
#include "drafthost/reports/layers_report.h"
#include "drafthost/reports/pictures.h"
#include "drafthost/run.h"
#include "drafthost/system/output.h"
#include "drafthost/system/process.h"
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
    if (options.picture.empty()) return runSession(options);
    const OutputFolder folder(options);
    if (const int status = folder.prepare(); status != kDone) return status;
    return runBatch(options,
                    [&](const std::string& file) { return drawFile(options, folder, file); });
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
