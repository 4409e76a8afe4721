// Loading a drawing for a report.
#include "drafthost/reports/reading.h"

#include "drafthost/reports/json_text.h"
#include "drafthost/system/output.h"
#include "host/dxf/load/load_drawing.h"
#include "host/store/store.h"

std::unique_ptr<AcDbDatabase> loadForReading(const Options& options, const std::string& file) {
    host::DxfError error;
    auto store = host::loadDrawing(
        file, error, [&](double done) { return showProgress("Loading " + file, done); });
    if (store != nullptr) return std::make_unique<AcDbDatabase>(std::move(store));
    complain(error.message());
    if (options.json) writeOutput(errorJson(options, file, error.message()));
    return nullptr;
}
