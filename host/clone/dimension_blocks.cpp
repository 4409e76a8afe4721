// Finding, making and copying anonymous blocks.
#include "host/clone/dimension_blocks.h"

#include <vector>

#include "host/clone/back_pointers.h"
#include "host/clone/deep_clone.h"
#include "host/content/references.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

bool isTable(const ObjectBody& entity) {
    return blockPictureOf(entity.type()) == BlockPicture::Table;
}

/// Where an entity names its block.
FieldPlace blockPlace(const ObjectBody& entity) {
    return {isTable(entity) ? "AcDbBlockReference" : "AcDbDimension", 2};
}

}  // namespace

ObjectBody* pictureOf(const ObjectBody& entity) {
    const std::string_view name = rawTag(entity.tags(), blockPlace(entity));
    if (name.empty()) return nullptr;
    return entity.store->liveSymbol("BLOCK_RECORD", entity.decode(name));
}

ObjectBody& makeAnonymousBlock(Store& store, wchar_t letter, const ObjectBody& like) {
    const Index table = store.table("BLOCK_RECORD");
    // Names grow with the handles, so the first try nearly always is free.
    std::uint64_t number = store.handleSeed();
    std::wstring name;
    do {
        name = std::wstring(L"*") + letter + std::to_wstring(number++);
    } while (store.symbol(table, name) != nullptr);
    std::string text = newRecordText("BLOCK_RECORD", "AcDbBlockTableRecord");
    setTag(text, 2, toUtf8(name));
    const BlockParts parts = like.store->blockParts(like.self);
    if (parts.begin != kNoIndex) {
        const std::string_view block = like.store->at(parts.begin).tags();
        addPointTag(text, 10, realTag(block, 10), realTag(block, 20), realTag(block, 30));
    }
    ObjectBody& record = store.make(Kind::BlockRecord, text, table);
    addRecord(store, table, record, name);
    completeBlock(store, record);
    return record;
}

ObjectBody& copyPicture(Store& store, ObjectBody& entity) {
    constexpr FieldPlace kRecordOfTable{"AcDbTable", 343};
    ObjectBody& old = *pictureOf(entity);
    ObjectBody& made = makeAnonymousBlock(store, isTable(entity) ? L'T' : L'D', old);
    std::vector<ObjectBody*> contents;
    for (ObjectBody& part : store.children(old.self))
        contents.push_back(&part);
    CloneMap map;
    copyWithOwned(store, contents, made, map);
    translateReferences(store, map);
    std::string text(entity.tags());
    setTag(text, blockPlace(entity), store.encode(symbolName(made)));
    if (isTable(entity)) setTag(text, kRecordOfTable, formatHandle(made.handle));
    entity.setTags(text);
    leaveDefinition(old, entity.handle);
    return made;
}

}  // namespace host
