// Gives an inspection the spaces of a drawing and tells it what their entities are.
#include "drafthost/groups/drawing_inspection.h"

#include "host/editor/state/current_drawing.h"
#include "host/picking/outline.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

using host::Index;
using host::kNoIndex;
using host::Store;

std::vector<Index> spacesOf(const Store& store) {
    std::vector<Index> spaces;
    if (store.modelSpace() != kNoIndex) spaces.push_back(store.modelSpace());
    for (const host::ObjectBody& record : store.children(store.table("BLOCK_RECORD")))
        if (record.self != store.modelSpace() && host::isSpace(record))
            spaces.push_back(record.self);
    return spaces;
}

std::string spaceName(const Store& store, Index space) {
    return host::toUtf8(host::layoutName(store, space));
}

inspection::Inspection inspectDrawing(AcDbDatabase& drawing, bool withExtents,
                                      std::string* frames) {
    const Store& store = drawing.store();
    std::vector<inspection::Space> spaces;
    for (const Index space : spacesOf(store))
        spaces.push_back({store.idOf(space), spaceName(store, space)});
    host::OutlineMaker maker(store);
    const inspection::Describe describe = [&](AcDbObjectId id) {
        const host::ObjectBody& body = *Store::resolve(id);
        inspection::Entity entity{id, host::formatHandle(body.handle),
                                  host::toUtf8(store.decode(body.type())),
                                  host::toUtf8(store.decode(host::textTag(body.tags(), 8, "0")))};
        const std::optional<host::Box> box =
            withExtents ? maker.outlineOf(body).bounds() : std::nullopt;
        if (box) entity.extents = {box->left, box->bottom, box->right, box->top};
        return entity;
    };
    inspection::Inspection found = inspection::inspect(drawing, spaces, describe);
    if (maker.framed() > 0 && frames != nullptr) *frames = maker.framesLine();
    return found;
}
