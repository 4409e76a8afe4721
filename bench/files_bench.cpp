// What loading and saving a drawing costs beside libdime.
//
// outside_readers.py compares the same drawing, which is left in the scratch folder, with ezdxf.
#include <dime/Input.h>
#include <dime/Model.h>
#include <dime/Output.h>

#include "drawings.h"
#include "host/dxf/load/load_drawing.h"
#include "host/dxf/save/save_drawing.h"
#include "ratio.h"

namespace {

constexpr double kDimeAtMost = 0.5;
constexpr double kTenfoldAtMost = 12;

/// Writes the mixed drawing and gives its path.
std::string drawingOf(long entities) {
    const std::string path = SCRATCH_FOLDER "/mixed" + std::to_string(entities) + ".dxf";
    bench::writeMixedDrawing(path, entities);
    return path;
}

void loadAndSave(const std::string& path) {
    host::DxfError error;
    const auto store = host::loadDrawing(path, error);
    const bool done =
        store != nullptr && host::saveDrawing(*store, SCRATCH_FOLDER "/saved.dxf", error);
    bench::mustHold(done, error.text);
}

void dimeReadAndWrite(const std::string& path) {
    dimeModel model;
    dimeInput input;
    dimeOutput output;
    bench::mustHold(input.setFile(path.c_str()) && model.read(&input) &&
                        output.setFilename(SCRATCH_FOLDER "/saved_by_dime.dxf") &&
                        model.write(&output),
                    "libdime reads and writes " + path);
}

void loadAndSaveBesideDime(benchmark::State& state) {
    const std::string path = drawingOf(state.range(0));
    bench::compare(state, {[&] { loadAndSave(path); }}, {[&] { dimeReadAndWrite(path); }},
                   kDimeAtMost, state.range(0));
}

void loadAndSaveTenfold(benchmark::State& state) {
    const std::string small = drawingOf(state.range(0));
    const std::string large = drawingOf(10 * state.range(0));
    bench::compare(state, {[&] { loadAndSave(large); }}, {[&] { loadAndSave(small); }},
                   kTenfoldAtMost, 10 * state.range(0));
}

BENCHMARK(loadAndSaveTenfold)->Arg(20000)->Apply(bench::inTurns);
BENCHMARK(loadAndSaveBesideDime)->Arg(200000)->Apply(bench::inTurns);

}  // namespace
