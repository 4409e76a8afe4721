// Pieces of groups as no command makes them, and damage as it comes from outside.
#pragma once

#include "common/drawing_order.h"
#include "common/scene.h"
#include "common/tag_literals.h"
#include "host/objectarx/database.h"
#include "host/objectarx/entities.h"
#include "host_guards.h"
#include "host_services.h"
#include "marker.h"
#include "marker_block.h"

namespace tests {

/// Adds an empty block or layer of that name.
template <typename Table, typename Record>
void addRecord(const wchar_t* name) {
    Opened<Table> table;
    ASSERT_EQ(workingDatabase()->getSymbolTable(table.receive(), AcDb::kForWrite), Acad::eOk);
    const NewObject<Record> record(new Record);
    record->setName(name);
    ASSERT_EQ(table->add(record.get()), Acad::eOk);
}

/// Locks a layer that the drawing has.
inline void lockLayer(const wchar_t* name) {
    Opened<AcDbLayerTable> layers;
    Opened<AcDbLayerTableRecord> layer;
    ASSERT_EQ(workingDatabase()->getSymbolTable(layers.receive(), AcDb::kForRead), Acad::eOk);
    ASSERT_EQ(layers->getAt(name, layer.receive(), AcDb::kForWrite), Acad::eOk);
    setTag(layer->body(), 70, "4");
}

/// One attribute, from 0, of the n-th block reference, open for write.
inline void openAttribute(Scene& scene, int marker, int attribute, Opened<AcDbAttribute>& opened) {
    const host::Store& store = scene.store();
    host::Index index = store.firstLive(entityOf(store, "INSERT", marker).self);
    while (attribute-- > 0)
        index = store.nextLive(store.at(index));
    ASSERT_EQ(acdbOpenObject(opened.receive(), store.idOf(index), AcDb::kForWrite), Acad::eOk);
}

/// Adds a reference to a new block with one attribute, whose tag is the block's name.
inline void insertBlock(const std::wstring& name, const std::wstring& text) {
    AcDbObjectId block;
    createMarkerBlock(block, name);
    ASSERT_EQ(insertMarker(name, {}, text, L""), kInserted);
}

/// Rewrites the text of an attribute.
inline void setAttribute(Scene& scene, int marker, int attribute, const std::wstring& text) {
    Opened<AcDbAttribute> opened;
    openAttribute(scene, marker, attribute, opened);
    opened->setTextString(text.c_str());
}

}  // namespace tests
