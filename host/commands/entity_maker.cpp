// Making entities from their tags.
#include "host/commands/entity_maker.h"

#include "host/objects/class_table.h"
#include "host/objects/opening.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

std::string currentLayer(const Store& store) {
    const auto name = store.headerValue("$CLAYER");
    if (!name || name->empty()) return "0";
    // As it stands where possible: escapes in it may mean what no line can hold.
    return store.encoding().utf8 ? std::string(*name) : encodeText(store.decode(*name), Encoding());
}

}  // namespace

AcDbObjectId addEntity(Store& store, std::string_view type, const std::string& tags) {
    const Index space = store.currentSpace();
    std::string text;
    addTag(text, 0, type);
    addTag(text, 100, "AcDbEntity");
    if (space != store.modelSpace()) addTag(text, 67, 1);
    addTag(text, 8, currentLayer(store));
    text += tags;
    const Kind kind = kindOf(type, text, true);
    AcDbObject* entity = makeView(*freshBody(kind, text));
    if (makeResident(*entity, store, space) != Acad::eOk) {
        delete entity;
        return {};
    }
    const AcDbObjectId id = entity->objectId();
    store.appendChild(space, *Store::resolve(id));
    entity->close();
    return id;
}

}  // namespace host
