// Finds the current drawing and the entities that names stand for.
#include "host/editor/state/current_drawing.h"
#include "host/store/symbol_records.h"

#include "host/control/accounting.h"
#include "host/objectarx/database.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

DocumentState* current = nullptr;

}  // namespace

DocumentState* currentDocumentState() { return current; }

void setCurrentDocumentState(DocumentState* state) { current = state; }

Store* currentStore() {
    if (current == nullptr || current->database == nullptr) return nullptr;
    return &current->database->store();
}

bool isSpace(const ObjectBody& blockRecord) {
    return blockRecord.kind == Kind::BlockRecord && isSpaceName(symbolName(blockRecord));
}

ObjectBody* ownerOf(const ObjectBody& entity) {
    if (entity.store == nullptr || entity.owner == kNoIndex) return nullptr;
    return &entity.store->at(entity.owner);
}

ObjectBody* mainEntityOf(ObjectBody& body) {
    if (isMainEntity(body)) return &body;
    if (!isSubEntityKind(body.kind)) return nullptr;
    ObjectBody* owner = ownerOf(body);
    return owner != nullptr && isMainEntity(*owner) ? owner : nullptr;
}

ObjectBody* entityOf(const ads_name name, const char* call) {
    const Store* store = currentStore();
    if (store == nullptr || name == nullptr || (name[0] == 0 && name[1] == 0)) return nullptr;
    ObjectBody* body = nullptr;
    if (name[1] == 0) body = Store::resolve(idOfName(name));
    if (body == nullptr) {
        reportModuleFault(std::string(call) + ": the entity name belongs to no open drawing");
        return nullptr;
    }
    if (body->store != store || body->erased || !isMainEntity(*body)) return nullptr;
    return body;
}

std::wstring layoutName(const Store& store, Index space) {
    const std::wstring model = L"Model";
    if (space == kNoIndex || space == store.modelSpace()) return model;
    const ObjectBody* layout = store.byHandle(handleTag(store.at(space).tags(), 340));
    const auto part = layout ? subclassPart(layout->tags(), "AcDbLayout") : std::nullopt;
    return part ? store.decode(textTag(*part, 1, "Model")) : model;
}

std::wstring handleText(const ObjectBody& body) { return fromUtf8(formatHandle(body.handle)); }

}  // namespace host
