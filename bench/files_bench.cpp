// What loading and saving a drawing costs beside libdime.
//
// outside_readers.py compares the same drawing, which is left in the scratch folder, with ezdxf.
#include <dime/Input.h>
#include <dime/Model.h>
#include <dime/Output.h>

#include <stdexcept>

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
    if (store == nullptr || !host::saveDrawing(*store, SCRATCH_FOLDER "/saved.dxf", error))
        throw std::runtime_error(error.text);
}

void dimeReadAndWrite(const std::string& path) {
    dimeModel model;
    dimeInput input;
    dimeOutput output;
    if (!input.setFile(path.c_str()) || !model.read(&input) ||
        !output.setFilename(SCRATCH_FOLDER "/saved_by_dime.dxf") || !model.write(&output))
        throw std::runtime_error("libdime does not read or write " + path);
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

void inTurns(benchmark::internal::Benchmark* row) {
    row->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(loadAndSaveTenfold)->Arg(20000)->Apply(inTurns);
BENCHMARK(loadAndSaveBesideDime)->Arg(200000)->Apply(inTurns);

}  // namespace
