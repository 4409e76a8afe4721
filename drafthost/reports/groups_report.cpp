// Lists the groups of drawings without a session.
#include "drafthost/reports/groups_report.h"

#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/reports/json_text.h"
#include "drafthost/reports/reading.h"
#include "drafthost/system/output.h"
#include "inspection/report.h"

int listGroups(const Options& options, const std::string& file) {
    const std::unique_ptr<AcDbDatabase> drawing = loadForReading(options, file);
    if (drawing == nullptr) return kUnreadable;
    std::string frames;
    const inspection::Inspection found = inspectDrawing(*drawing, true, &frames);
    if (!frames.empty()) complain(file + ": " + frames);
    if (!found.good() || !options.quiet) {
        const auto listed = options.quiet ? inspection::Listed::Faults : inspection::Listed::All;
        writeOutput(options.json ? groupsJson(file, found)
                                 : inspection::listText(file + ": ", found, listed));
    }
    return found.good() ? kDone : kDamaged;
}
