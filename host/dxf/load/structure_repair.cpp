// Supplies what every drawing needs and a loaded one lacks.
#include "host/dxf/load/structure_repair.h"
#include "host/store/symbol_records.h"

#include "host/content/dictionary_text.h"
#include "host/store/body_text.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// Begins an object with the tags that all have.
std::string beginObject(const char* type, std::uint64_t handle, std::uint64_t owner) {
    return storedTags({{0, type}, {5, formatHandle(handle)}, {330, formatHandle(owner)}});
}

ObjectBody& addObject(Store& store, Kind kind, const std::string& text, std::uint64_t handle) {
    // The handle comes from the seed, so it is free.
    return *store.create(kind, store.keep(text), handle);
}

Index supplyTable(Store& store, const char* name, Kind kind) {
    if (const Index table = store.table(name)) return table;
    const std::uint64_t handle = store.freeHandle();
    ObjectBody& table = addObject(store, kind,
                                  storedTags({{0, "TABLE"},
                                              {2, name},
                                              {5, formatHandle(handle)},
                                              {330, "0"},
                                              {100, "AcDbSymbolTable"},
                                              {70, "0"}}),
                                  handle);
    store.tables().push_back(table.self);
    return table.self;
}

/// A record of a table: its type, class and name, and the tags behind the name.
struct RecordForm {
    const char* type;
    Kind kind;
    const char* markerName;
    std::string rest;
};

ObjectBody& supplyRecord(Store& store, Index table, const RecordForm& form,
                         std::string_view bytes) {
    const std::wstring name = store.decode(bytes);
    if (ObjectBody* const record = store.symbol(table, name)) return *record;
    const std::uint64_t handle = store.freeHandle();
    std::string text = beginObject(form.type, handle, store.at(table).handle);
    text += storedTags({{100, "AcDbSymbolTableRecord"}, {100, form.markerName}, {2, bytes}});
    text += form.rest;
    ObjectBody& record = addObject(store, form.kind, text, handle);
    addRecord(store, table, record, name);
    return record;
}

constexpr char kLayer[] = " 70\n0\n 62\n7\n  6\nContinuous\n";
constexpr char kLinetype[] = " 70\n0\n  3\n\n 72\n65\n 73\n0\n 40\n0.0\n";
constexpr char kSolidLinetype[] = " 70\n0\n  3\nSolid line\n 72\n65\n 73\n0\n 40\n0.0\n";
constexpr char kStyle[] =
    " 70\n0\n 40\n0.0\n 41\n1.0\n 50\n0.0\n 71\n0\n 42\n2.5\n  3\ntxt\n  4\n\n";

}  // namespace

void supplyTables(Store& store) {
    store.section(SectionKind::Tables);
    const Index linetypes = supplyTable(store, "LTYPE", Kind::LinetypeTable);
    const RecordForm plain{"LTYPE", Kind::LinetypeRecord, "AcDbLinetypeTableRecord", kLinetype};
    const RecordForm solid{"LTYPE", Kind::LinetypeRecord, "AcDbLinetypeTableRecord",
                           kSolidLinetype};
    supplyRecord(store, linetypes, plain, "ByBlock");
    supplyRecord(store, linetypes, plain, "ByLayer");
    supplyRecord(store, linetypes, solid, "Continuous");

    const Index layers = supplyTable(store, "LAYER", Kind::LayerTable);
    const RecordForm layer{"LAYER", Kind::LayerRecord, "AcDbLayerTableRecord", kLayer};
    supplyRecord(store, layers, layer, "0");

    const Index styles = supplyTable(store, "STYLE", Kind::OtherTable);
    const RecordForm style{"STYLE", Kind::OtherRecord, "AcDbTextStyleTableRecord", kStyle};
    supplyRecord(store, styles, style, "Standard");

    const Index applications = supplyTable(store, "APPID", Kind::OtherTable);
    const RecordForm application{"APPID", Kind::OtherRecord, "AcDbRegAppTableRecord", " 70\n0\n"};
    supplyRecord(store, applications, application, "ACAD");

    supplyTable(store, "BLOCK_RECORD", Kind::BlockTable);
    supplyBlockRecord(store, "*Model_Space");
    supplyBlockRecord(store, "*Paper_Space");
}

ObjectBody& supplyBlockRecord(Store& store, std::string_view name) {
    const RecordForm form{"BLOCK_RECORD", Kind::BlockRecord, "AcDbBlockTableRecord", "340\n0\n"};
    return supplyRecord(store, store.table("BLOCK_RECORD"), form, name);
}

void supplySpaceBlocks(Store& store) {
    store.section(SectionKind::Blocks);
    for (const Index space : {store.modelSpace(), store.paperSpace()}) {
        if (store.blockParts(space).begin == kNoIndex) makeBlockParts(store, store.at(space), {});
    }
}

void supplyObjects(Store& store) {
    store.section(SectionKind::Header);
    store.section(SectionKind::Entities);
    store.section(SectionKind::Objects);
    if (store.rootDictionary() != kNoIndex) return;
    const std::uint64_t handle = store.freeHandle();
    const std::string empty = newDictionaryText(false);
    ObjectBody& root = addObject(store, Kind::Dictionary, withIdentity(empty, handle, 0), handle);
    store.appendChild(store.objectsList(), root);
    const std::uint64_t next = store.freeHandle();
    ObjectBody& groups =
        addObject(store, Kind::Dictionary, withIdentity(empty, next, handle), next);
    store.appendChild(store.objectsList(), groups);
    groups.owner = root.self;
    addEntry(root, L"ACAD_GROUP", groups.handle);
}

}  // namespace host
