// Symbol tables, block and layer records, the database, and what a new drawing holds.
#include "database/drawing_fixture.h"

namespace tests {
namespace {

class SymbolTableTest : public DrawingTest {
  protected:
    AcDbObjectId addLayer(const ACHAR* name, Acad::ErrorStatus expected = Acad::eOk) {
        auto* layer = new AcDbLayerTableRecord;
        AcDbObjectId id;
        EXPECT_EQ(layer->setName(name), Acad::eOk);
        AcDbLayerTable* table = nullptr;
        EXPECT_EQ(database.getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(table->add(id, layer), expected);
        table->close();
        if (expected == Acad::eOk)
            layer->close();
        else
            delete layer;
        return id;
    }
};

using SymbolTable = SymbolTableTest;
using Layer = SymbolTableTest;
using Block = DrawingTest;
using Header = DrawingTest;

TEST_F(SymbolTable, NamesAreFoundWithoutRegardToCaseAndLiveRecordsWin) {
    const AcDbObjectId first = addLayer(L"Gro\u00DFe W\u00E4nde");
    addLayer(L"GRO\u00DFE W\u00C4NDE", Acad::eDuplicateRecordName);
    AcDbLayerTable* table = nullptr;
    database.getSymbolTable(table, AcDb::kForRead);
    EXPECT_TRUE(table->has(L"gro\u00DFe w\u00E4nde"));
    Opened<AcDbObject>(first, AcDb::kForWrite)->erase();
    EXPECT_FALSE(table->has(L"Gro\u00DFe W\u00E4nde"));
    AcDbObjectId found;
    AcDbLayerTableRecord* record = nullptr;
    EXPECT_EQ(table->getAt(L"GRO\u00DFE W\u00E4nde", found), Acad::eWasErased);
    EXPECT_EQ(table->getAt(L"GRO\u00DFE W\u00E4nde", record, AcDb::kForRead), Acad::eWasErased);
    EXPECT_EQ(record, nullptr);
    EXPECT_EQ(table->getAt(L"none", found), Acad::eKeyNotFound);
    table->close();
    const AcDbObjectId second = addLayer(L"gro\u00DFe w\u00E4nde");
    database.getSymbolTable(table, AcDb::kForRead);
    EXPECT_EQ(table->getAt(L"Gro\u00DFe W\u00E4nde", found), Acad::eOk);
    EXPECT_EQ(found, second);
    table->close();
}

TEST_F(SymbolTable, TypedOpeningRefusesRecordsOfAnotherClass) {
    model().kind = host::Kind::LayerRecord;
    AcDbBlockTable* blocks = nullptr;
    AcDbBlockTableRecord* record = nullptr;
    database.getSymbolTable(blocks, AcDb::kForRead);
    EXPECT_EQ(blocks->getAt(ACDB_MODEL_SPACE, record, AcDb::kForRead), Acad::eNotThatKindOfClass);
    EXPECT_EQ(record, nullptr);
    blocks->close();
    model().kind = host::Kind::BlockRecord;
}

TEST_F(SymbolTable, RefusesBadNamesAndWrongRecords) {
    AcDbLayerTableRecord layer;
    for (const ACHAR* bad : {L"", L"a*b", L"*a", L"a/b", L"a|b", L"a\nb"})
        EXPECT_EQ(layer.setName(bad), Acad::eInvalidSymbolTableName) << bad;
    EXPECT_EQ(layer.setName(std::wstring(256, L'x').c_str()), Acad::eInvalidSymbolTableName);
    AcDbBlockTable* blocks = nullptr;
    database.getSymbolTable(blocks, AcDb::kForWrite);
    EXPECT_EQ(blocks->add(&layer), Acad::eWrongObjectType);
    EXPECT_EQ(blocks->add(nullptr), Acad::eNullObjectPointer);
    AcDbBlockTableRecord unnamed;
    EXPECT_EQ(blocks->add(&unnamed), Acad::eInvalidSymbolTableName);
    blocks->close();
    database.getSymbolTable(blocks, AcDb::kForRead);
    EXPECT_EQ(blocks->add(&unnamed), Acad::eNotOpenForWrite);
    blocks->close();
}

TEST_F(Layer, StateColourLinetypeAndCurrentLayer) {
    const AcDbObjectId id = addLayer(L"Walls");
    Opened<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    const AcDbObjectId linetype = idOf(*store.symbol("LTYPE", L"ByLayer"));
    AcCmColor red;
    red.setColorIndex(1);
    replaceText(layer->body(), "62 7", "62 -7");
    layer->setColor(red);
    EXPECT_EQ(layer->setLinetypeObjectId(id), Acad::eNotThatKindOfClass);
    EXPECT_EQ(layer->setLinetypeObjectId(linetype), Acad::eOk);
    const std::string tags = render(layer->body().tags());
    EXPECT_TRUE(holds(tags, "|70 0|62 -1|6 ByLayer"));
    EXPECT_EQ(layer->setIsFrozen(true), Acad::eOk);
    EXPECT_EQ(database.setClayer(id), Acad::eInvalidInput);
    layer->setIsFrozen(false);
    EXPECT_EQ(database.setClayer(id), Acad::eOk);
    EXPECT_EQ(store.headerValue("$CLAYER"), "Walls");
    EXPECT_EQ(layer->setIsFrozen(true), Acad::eInvalidInput);
    EXPECT_EQ(database.setClayer(linetype), Acad::eNotThatKindOfClass);
    EXPECT_EQ(AcDbDatabase(host::newDrawing()).setClayer(id), Acad::eWrongDatabase);
}

TEST_F(Block, ANewDefinitionHasItsPartsBasePointAndAttributeMark) {
    AcDbBlockTable* blocks = nullptr;
    database.getSymbolTable(blocks, AcDb::kForWrite);
    auto* record = new AcDbBlockTableRecord;
    record->setName(L"T\u00FCr");
    record->setOrigin({1, 2, 3});
    ASSERT_EQ(blocks->add(record), Acad::eOk);
    EXPECT_FALSE(record->hasAttributeDefinitions());
    auto* definition = new AcDbAttributeDefinition;
    EXPECT_EQ(record->appendAcDbEntity(definition), Acad::eOk);
    EXPECT_TRUE(record->hasAttributeDefinitions());
    const host::BlockParts parts = store.blockParts(record->body().self);
    const std::string owner = handle(record->body());
    EXPECT_EQ(render(store.at(parts.begin).tags()),
              "0 BLOCK|5 " + handle(store.at(parts.begin)) + "|330 " + owner +
                  "|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 T\u00FCr|70 2|10 1.0|20 2.0|30 3.0|3 "
                  "T\u00FCr|1 ");
    EXPECT_EQ(store.blockOrder().back(), record->body().self);
    definition->close();
    record->close();
    blocks->close();
}

TEST_F(Block, TheIteratorWalksLiveMainEntities) {
    add("0 LINE|8 0");
    store.setErased(add("0 CIRCLE|8 0"), true);
    addPolyline();
    Opened<AcDbBlockTableRecord> space(idOf(model()), AcDb::kForRead);
    AcDbBlockTableRecordIterator* iterator = nullptr;
    EXPECT_EQ(space->newIterator(iterator), Acad::eOk);
    std::string types;
    for (; !iterator->done(); iterator->step()) {
        AcDbEntity* entity = nullptr;
        EXPECT_EQ(iterator->getEntity(entity, AcDb::kForRead), Acad::eOk);
        types += std::string(entity->body().type()) + " ";
        entity->close();
    }
    iterator->step();
    delete iterator;
    EXPECT_EQ(types, "LINE POLYLINE ");
}

TEST_F(Header, ValuesAreFoundChangedAndAdded) {
    EXPECT_EQ(store.headerValue("$ACADVER"), "AC1027");
    EXPECT_EQ(store.headerValue("$TILE"), std::nullopt);
    store.setHeaderValue("$CLAYER", 8, "a longer name");
    store.setHeaderValue("$TITLE", 1, "$NEW");
    EXPECT_EQ(store.headerValue("$NEW"), std::nullopt);
    store.setHeaderValue("$NEW", 70, "3");
    EXPECT_EQ(store.headerValue("$CLAYER"), "a longer name");
    EXPECT_EQ(store.headerValue("$CELTYPE"), "ByLayer");
    EXPECT_EQ(store.headerValue("$NEW"), "3");
}

}  // namespace
}  // namespace tests
