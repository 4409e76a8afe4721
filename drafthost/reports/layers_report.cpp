// Lists the layers of drawings without a session.
#include "drafthost/reports/layers_report.h"

#include <memory>

#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/groups/entity_lots.h"
#include "drafthost/reports/json_text.h"
#include "drafthost/reports/reading.h"
#include "drafthost/system/output.h"
#include "host/store/symbol_records.h"
#include "host/text/text_codec.h"

namespace {

using host::Store;

/// All layers by name: those that are defined and those that entities name.
Lots layersOf(const Store& store, const inspection::Inspection& found) {
    Lots lots;
    for (const host::ObjectBody& record : store.children(store.table("LAYER"))) {
        const std::wstring name = host::symbolName(record);
        if (!inspection::isMarkerName(host::toUtf8(name)))
            lots[host::foldCase(name)].name = host::toUtf8(name);
    }
    for (const host::Index space : spacesOf(store))
        addLots(store, space, LotBy::Layer, found, lots);
    return lots;
}

ListedLayer listed(const Store& store, const Lot& layer) {
    const host::ObjectBody* record = store.symbol("LAYER", host::fromUtf8(layer.name));
    ListedLayer line = {layer.name, layer.all(), layer.grouped};
    if (record == nullptr) return line;
    const host::LayerState state = host::layerState(*record);
    line.off = state.off;
    line.frozen = state.frozen;
    line.locked = state.locked;
    line.defined = true;
    return line;
}

std::string textOf(const ListedLayer& layer) {
    return "layer " + layer.name + ": " + host::amount(layer.entities, "entity, ", "entities, ") +
           std::to_string(layer.inGroups) + " in groups" + (layer.off ? ", off" : "") +
           (layer.frozen ? ", frozen" : "") + (layer.locked ? ", locked" : "") +
           (layer.defined ? "" : ", not defined");
}

}  // namespace

int listLayers(const Options& options, const std::string& file) {
    const std::unique_ptr<AcDbDatabase> drawing = loadForReading(options, file);
    if (drawing == nullptr) return kUnreadable;
    std::vector<ListedLayer> layers;
    for (const auto& [key, lot] : layersOf(drawing->store(), inspectDrawing(*drawing, false)))
        layers.push_back(listed(drawing->store(), lot));
    std::string text;
    for (const ListedLayer& layer : layers)
        text += file + ": " + textOf(layer) + "\n";
    writeOutput(options.json ? layersJson(file, layers) : text);
    return kDone;
}
