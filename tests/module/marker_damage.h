// Damage to group markers as it comes from outside.
#pragma once

#include "common/drawing_order.h"
#include "common/scene.h"
#include "host/objectarx/database.h"
#include "host/objectarx/entities.h"

namespace tests {

/// Rewrites one attribute text of the n-th block reference.
inline void setAttribute(Scene& scene, int marker, int attribute, const std::wstring& text) {
    const host::Store& store = scene.store();
    const auto handle = host::parseHandle(handleOf(store, "INSERT", marker));
    host::Index index = store.firstLive(store.byHandle(handle.value())->self);
    while (attribute-- > 0)
        index = store.nextLive(store.at(index));
    AcDbText* opened = nullptr;
    ASSERT_EQ(acdbOpenObject(opened, store.idOf(index), AcDb::kForWrite), Acad::eOk);
    opened->setTextString(text.c_str());
    opened->close();
}

}  // namespace tests
