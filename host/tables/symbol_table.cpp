// Symbol tables and what all their records have in common: names, lookup, adding.
#include "host/content/fields.h"
#include "host/control/faults.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/opening.h"
#include "host/objects/result_list.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

/// Gives a new layer the plot style and line weight that layer 0 has: drawings with named styles
/// are refused elsewhere when a layer lacks them.
void addPlotting(const Store& store, ObjectBody& layer) {
    const ObjectBody* const model = store.symbol("LAYER", L"0");
    if (model == nullptr) return;
    std::string text(layer.tags());
    for (const int code : {370, 390})
        if (const auto place = findTag(model->tags(), code)) setTag(text, code, place->value);
    layer.setTags(text);
}

/// False also for the other tables: no class of the interface makes records of theirs.
bool takesRecord(Kind table, Kind record) {
    return (table == Kind::BlockTable && record == Kind::BlockRecord) ||
           (table == Kind::LayerTable && record == Kind::LayerRecord) ||
           (table == Kind::LinetypeTable && record == Kind::LinetypeRecord);
}

}  // namespace
}  // namespace host

using namespace host;

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    name = nullptr;
    if (callFails("AcDbSymbolTableRecord::getName")) return Acad::eOutOfMemory;
    name = newString(symbolName(body()));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (callFails("AcDbSymbolTableRecord::setName")) return Acad::eInvalidSymbolTableName;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    const bool anonymous = content.kind == Kind::BlockRecord;
    if (name == nullptr || !symbolNameIsValid(name, anonymous))
        return Acad::eInvalidSymbolTableName;
    if (content.store != nullptr) return Acad::eNotApplicable;
    setField(content, TextField{{"", 2, 0, true}, L""}, name);
    return Acad::eOk;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
    const ObjectBody& content = body();
    return name != nullptr && content.store != nullptr &&
           content.store->liveSymbol(content.self, name) != nullptr;
}

namespace {

Acad::ErrorStatus findRecord(const ObjectBody& table, const ACHAR* name, ObjectBody*& record) {
    record = nullptr;
    if (name == nullptr || table.store == nullptr) return Acad::eKeyNotFound;
    record = table.store->symbol(table.self, name);
    if (record == nullptr) return Acad::eKeyNotFound;
    return record->erased ? Acad::eWasErased : Acad::eOk;
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id) const {
    id.setNull();
    if (callFails("AcDbSymbolTable::getAt")) return Acad::eKeyNotFound;
    ObjectBody* record = nullptr;
    const Acad::ErrorStatus status = findRecord(body(), name, record);
    if (status == Acad::eOk) id = record->store->idOf(*record);
    return status;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                         AcDb::OpenMode mode) const {
    record = nullptr;
    if (callFails("AcDbSymbolTable::getAt")) return Acad::eKeyNotFound;
    ObjectBody* found = nullptr;
    const Acad::ErrorStatus status = findRecord(body(), name, found);
    return status == Acad::eOk ? openAs(record, *found, mode) : status;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    id.setNull();
    if (callFails("AcDbSymbolTable::add")) return Acad::eDuplicateRecordName;
    ObjectBody& table = body();
    if (!table.openForWrite) return Acad::eNotOpenForWrite;
    if (record == nullptr) return Acad::eNullObjectPointer;
    if (!takesRecord(table.kind, record->body().kind)) return Acad::eWrongObjectType;
    const std::wstring name = symbolName(record->body());
    if (name.empty()) return Acad::eInvalidSymbolTableName;
    if (record->body().store != nullptr) return Acad::eAlreadyInDb;
    if (has(name.c_str())) return Acad::eDuplicateRecordName;
    Store& store = *table.store;
    const Acad::ErrorStatus status = makeResident(*record, store, table.self);
    if (status != Acad::eOk) return status;
    ObjectBody& added = record->body();
    addRecord(store, table.self, added, name);
    if (added.kind == Kind::BlockRecord) completeBlock(store, added);
    if (added.kind == Kind::LayerRecord) addPlotting(store, added);
    id = store.idOf(added);
    return Acad::eOk;
}
