// Loading a drawing from an ASCII DXF file.
#include "host/dxf/load/load_drawing.h"

#include <new>

#include "host/dxf/load/drawing_builder.h"
#include "host/dxf/load/drawing_linker.h"

namespace host {

/// Text of new_drawing.dxf; the build makes its source.
extern const std::string_view kNewDrawing;

namespace {

std::unique_ptr<Store> readDrawing(InputFile& file, DxfError& error,
                                   const ProgressFunction& progress,
                                   std::vector<Finding>* supplied) {
    auto store = std::make_unique<Store>();
    TagStream stream(file, error, progress);
    LoadedParts parts;
    if (!DrawingBuilder(*store, stream, parts).build()) return nullptr;
    store->setLineEnding(stream.lineEnding());
    DrawingLinker linker(*store, stream, parts);
    if (!linker.link()) return nullptr;
    std::vector<Finding> lacking = linker.supplied();
    store->supplied = lacking.size();
    if (supplied != nullptr) *supplied = std::move(lacking);
    // A drawing that was saved on a layout's tab opens there, in paper space.
    if (!store->modelTabCurrent()) store->currentViewport = 1;
    store->revision = 0;
    return store;
}

}  // namespace

std::unique_ptr<Store> loadDrawing(const std::string& path, DxfError& error,
                                   const ProgressFunction& progress,
                                   std::vector<Finding>* supplied) {
    error = {path, 0, {}};
    try {
        InputFile file;
        std::string why;
        if (!file.open(path, why)) {
            error.text = "cannot be read: " + why + "; choose a DXF drawing";
            return nullptr;
        }
        return readDrawing(file, error, progress, supplied);
    } catch (const std::bad_alloc&) {
        error.text = "the drawing does not fit into memory; close other programs or split it";
        return nullptr;
    }
}

std::unique_ptr<Store> newDrawing() {
    InputFile text;
    text.openText(kNewDrawing);
    DxfError error;
    const ProgressFunction silent;
    return readDrawing(text, error, silent, nullptr);
}

}  // namespace host
