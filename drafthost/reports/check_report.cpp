// The check of drawings, as the program prints it.
#include "drafthost/reports/check_report.h"

#include <algorithm>

#include "drafthost/reports/json_text.h"
#include "drafthost/system/output.h"
#include "host/dxf/check/drawing_check.h"

namespace {

std::string listText(const std::string& file, const std::vector<host::Finding>& findings,
                     bool sound) {
    std::string text;
    for (const host::Finding& finding : findings) {
        const bool isError = finding.severity == host::Severity::Error;
        text += file + (isError ? ": " : ": note: ") + finding.text + "\n";
    }
    return text + file + (sound ? ": sound\n" : ": damaged\n");
}

}  // namespace

int checkFile(const Options& options, const std::string& file) {
    host::DxfError error;
    const auto findings = host::checkFile(
        file, error, [&](double done) { return showProgress("Checking " + file, done); });
    if (!findings) {
        complain(error.message());
        if (options.json) writeOutput(errorJson(options, file, error.message()));
        return kUnreadable;
    }
    const bool sound = std::none_of(findings->begin(), findings->end(), [](const auto& finding) {
        return finding.severity == host::Severity::Error;
    });
    if (!sound || !options.quiet) {
        writeOutput(options.json ? checkJson(file, *findings, sound)
                                 : listText(file, *findings, sound));
    }
    return sound ? kDone : kDamaged;
}
