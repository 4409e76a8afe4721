// Makes or updates the layer that holds the group markers.
#include "group_layer.h"

#include "diagnostics.h"
#include "host_guards.h"
#include "host_services.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupLayer";

/// Updates the layer `name`, which the open table holds. The null id when it cannot be opened.
AcDbObjectId updateLayer(const AcDbLayerTable& layers, const std::wstring& name,
                         const AcCmColor& color, const AcDbObjectId& linetype, bool thaw) {
    Opened<AcDbLayerTableRecord> layer;
    if (layers.getAt(name.c_str(), layer.receive(), AcDb::kForWrite) != Acad::eOk) {
        return AcDbObjectId();
    }
    if (thaw) {
        DIAG_CHECK(layer->setIsFrozen(false) == Acad::eOk);
    }
    DIAG_CHECK(layer->setColor(color) == Acad::eOk);
    DIAG_CHECK(layer->setLinetypeObjectId(linetype) == Acad::eOk);
    return layer->objectId();
}

/// Adds a new layer to the open table, which is upgraded to write. The null id on failure.
AcDbObjectId addLayer(AcDbLayerTable& layers, const std::wstring& name, const AcCmColor& color,
                      const AcDbObjectId& linetype) {
    if (!DIAG_CHECK(layers.upgradeOpen() == Acad::eOk)) return AcDbObjectId();
    NewObject<AcDbLayerTableRecord> layer(new AcDbLayerTableRecord);
    DIAG_CHECK(layer->setName(name.c_str()) == Acad::eOk);
    DIAG_CHECK(layer->setColor(color) == Acad::eOk);
    DIAG_CHECK(layer->setLinetypeObjectId(linetype) == Acad::eOk);
    DIAG_CHECK(layers.add(layer.get()) == Acad::eOk);
    return layer->objectId();
}

}  // namespace

void makeLayer(const std::wstring& name, Adesk::UInt16 colorIndex, const AcDbObjectId& linetype,
               int thawAndMakeCurrent) {
    AcCmColor color;
    DIAG_CHECK(color.setColorIndex(colorIndex) == Acad::eOk);
    AcDbDatabase* database = workingDatabase();
    Opened<AcDbLayerTable> layers;
    if (database == nullptr ||
        database->getSymbolTable(layers.receive(), AcDb::kForRead) != Acad::eOk) {
        acutPrintf(L"\nUnable to open the layer table Aborting...");
        return;
    }
    const bool makeCurrent = thawAndMakeCurrent != 0;
    const AcDbObjectId id = layers->has(name.c_str())
                                ? updateLayer(*layers.get(), name, color, linetype, makeCurrent)
                                : addLayer(*layers.get(), name, color, linetype);
    layers.close();
    if (makeCurrent && !id.isNull()) {
        DIAG_CHECK(database->setClayer(id) == Acad::eOk);
    }
}
