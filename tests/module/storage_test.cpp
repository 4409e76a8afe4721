// What groups are made of, each piece by itself: prefix, layer, record, marker.
#include "common/scratch.h"
#include "group_layer.h"
#include "group_naming.h"
#include "group_record.h"
#include "host/control/faults.h"
#include "storage_pieces.h"

namespace {

using tests::addRecord;
using tests::entityOf;
using tests::Scene;

TEST(Storage, ThePrefixIsThatOfTheDetailingBlocksThenOfTheLayer) {
    const struct {
        std::vector<const wchar_t*> blocks, layers;
        const wchar_t* prefix;
    } cases[] = {{{}, {}, L"VELMO"},
                 {{L"KESTEDET"}, {}, L"KEST"},
                 {{L"KESTMDET"}, {L"VELMO_GFRZ"}, L"KEST"},
                 {{L"KESTMDET", L"VELMOEDET"}, {}, L"VELMO"},
                 {{L"VELMOEDET"}, {L"KEST_GFRZ"}, L"VELMO"},
                 {{L"VELMOMDET", L"KESTEDET"}, {L"KEST_GFRZ"}, L"VELMO"},
                 {{L"OTHER"}, {L"KEST_GFRZ", L"VELMO_GFRZ"}, L"KEST"},
                 {{L"KEST_GB"}, {L"VELMO_GFRZ"}, L"VELMO"}};
    for (const auto& each : cases) {
        Scene scene("");
        for (const wchar_t* name : each.blocks)
            addRecord<AcDbBlockTable, AcDbBlockTableRecord>(name);
        for (const wchar_t* name : each.layers)
            addRecord<AcDbLayerTable, AcDbLayerTableRecord>(name);
        EXPECT_EQ(groupPrefix(), each.prefix) << &each - cases;
    }
}

TEST(Storage, ALayerThatIsThereIsThawedOnlyWhenItBecomesCurrent) {
    Scene scene("");
    Opened<AcDbLinetypeTable> linetypes;
    ASSERT_EQ(workingDatabase()->getSymbolTable(linetypes.receive(), AcDb::kForRead), Acad::eOk);
    AcDbObjectId byBlock, continuous;
    linetypes->getAt(L"BYBLOCK", byBlock);
    linetypes->getAt(L"CONTINUOUS", continuous);
    linetypes.close();
    const auto made = [&](Adesk::UInt16 color, const AcDbObjectId& linetype, int makeCurrent) {
        makeLayer(L"Markers", color, linetype, makeCurrent);
        const std::string_view layer = scene.store().symbol("LAYER", L"Markers")->tags();
        std::string text;
        for (const int code : {62, 70, 6})
            text += std::string(host::rawTag(layer, code)) + " ";
        return text + std::string(scene.store().headerValue("$CLAYER").value_or(""));
    };
    EXPECT_EQ(made(3, continuous, 0), "3 0 Continuous 0");
    Opened<AcDbLayerTable> layers;
    Opened<AcDbLayerTableRecord> layer;
    workingDatabase()->getSymbolTable(layers.receive(), AcDb::kForRead);
    ASSERT_EQ(layers->getAt(L"Markers", layer.receive(), AcDb::kForWrite), Acad::eOk);
    layer->setIsFrozen(true);
    layer.close();
    layers.close();
    EXPECT_EQ(made(4, byBlock, 0), "4 1 ByBlock 0");
    EXPECT_EQ(made(5, continuous, 1), "5 0 Continuous Markers");
}

/// The entity's extension dictionary, made if need be, with `entry` under `key`.
void store(const AcDbObjectId& entityId, const wchar_t* key, AcDbObject* entry) {
    Opened<AcDbObject> entity;
    ASSERT_EQ(acdbOpenObject(entity.receive(), entityId, AcDb::kForWrite), Acad::eOk);
    entity->createExtensionDictionary();
    Opened<AcDbDictionary> dictionary;
    acdbOpenObject(dictionary.receive(), entity->extensionDictionary(), AcDb::kForWrite);
    AcDbObjectId id;
    ASSERT_EQ(dictionary->setAt(key, entry, id), Acad::eOk);
}

TEST(Storage, ARecordIsAnXrecordWithTheTextFirst) {
    const wchar_t* const key = L"VELMO_GROUP";
    const wchar_t* const text = L"VELMO Group entity";
    const struct {
        const wchar_t *key, *first, *second;
        bool grouped;
    } cases[] = {{key, text, L"other", true},
                 {key, L"other", text, false},
                 {key, L"VELMO group entity", text, false},
                 {key, L"", text, false},
                 {L"VELMO_GROUPS", text, text, false},
                 {L"KEST_GROUP", L"KEST Group entity", text, false}};
    for (const auto& each : cases) {
        Scene scene("line");
        const AcDbObjectId line = scene.entities()[0];
        NewObject<AcDbXrecord> record(new AcDbXrecord);
        store(line, each.key, record.get());
        const ResultBuffers chain(acutBuildList(40, 1.0, 1, each.first, 1, each.second, 0));
        record->setFromRbChain(*chain.get());
        record.release();
        EXPECT_EQ(isGroupedEntity(line), each.grouped) << &each - cases;
    }
}

TEST(Storage, ARecordOfAnotherClassIsNone) {
    Scene scene("(line)");
    const tests::ScratchFolder folder;
    const std::string saved = folder.file("saved.dxf"), changed = folder.file("changed.dxf");
    ASSERT_TRUE(scene.session().saveDrawing(saved));
    tests::write(changed, tests::with(tests::contentOf(saved), "\nXRECORD\n", "\nWRECORD\n"));
    ASSERT_TRUE(scene.session().openDrawing(changed));
    EXPECT_FALSE(isGroupedEntity(scene.entities()[1]));
}

TEST(Storage, WhatCannotBeTakenAwayIsSaid) {
    Scene scene("line line");
    const AcDbObjectId bare = scene.entities()[0], other = scene.entities()[1];
    NewObject<AcDbXrecord> record(new AcDbXrecord);
    store(other, L"OTHER", record.get());
    record.release();
    EXPECT_FALSE(createXrecord(other));
    host::clearEffects();
    EXPECT_TRUE(deleteXrecord(bare));
    EXPECT_TRUE(deleteXrecord(other));
    EXPECT_FALSE(deleteXrecord({}));
    EXPECT_FALSE(createXrecord({}));
    EXPECT_EQ(Scene::printed(),
              "\nIn fucntion deleteXrecord Open Dictionary failed."
              "\nRemoving entry from the dictionary... failed."
              "\nThe dictionary is not empty... failed."
              "\nIn fucntion deleteXrecord Open Object failed."
              "\nIn fucntion createXrecord acdbOpenObject failed.");
    EXPECT_TRUE(createXrecord(bare));
    EXPECT_TRUE(isGroupedEntity(bare));
    host::clearEffects();
    EXPECT_TRUE(deleteXrecord(bare));
    EXPECT_EQ(scene.state(), "line line |  | ");
}

TEST(Storage, OnlyAMarkersTagLendsItsText) {
    Scene scene("(line) line");
    tests::insertBlock(L"VELMO_G", L"2A");
    std::wstring texts;
    for (const AcDbObjectId& id : scene.entities())
        texts += readMarkerText(id, kMarkerTag) + L"=" +
                 (readMarkerText(id, kMarkerText).empty() ? L" " : L"handle ");
    EXPECT_EQ(texts, L"VELMO_GB=handle = VELMO_GE=handle = VELMO_G= ");
}

TEST(Storage, TheMarkersAreStoredWithTheirProperties) {
    Scene scene("");
    host::switches().newTextHeight = 2.5;  // the second definition stands so far below
    host::switches().newTextPosition = 7.0;
    scene.draw("(line)");
    const host::Store& store = scene.store();
    const auto contents = [&store](host::Index parent) {
        std::string text;
        for (const host::ObjectBody& child : store.children(parent))
            text += tests::contentOf(child) + "\n";
        return text;
    };
    const auto block = [&](const wchar_t* name) {
        return contents(store.symbol("BLOCK_RECORD", name)->self);
    };
    const auto definition = [](const std::string& y, const std::string& name) {
        return "0=ATTDEF|100=AcDbEntity|8=VELMO_GFRZ|100=AcDbText|10=0.0|20=" + y +
               "|30=0.0|40=1.0|1=" + name + "|100=AcDbAttributeDefinition|280=0|3=" + name +
               "|2=" + name + "|70=1|73=25|\n";
    };
    EXPECT_EQ(block(L"VELMO_GB"), definition("0.0", "VELMO_GB") + definition("-2.5", "VELMO_GB"));
    EXPECT_EQ(block(L"VELMO_GE"), definition("0.0", "VELMO_GE"));
    const host::Index begin = store.firstLive(store.modelSpace());
    EXPECT_EQ(tests::contentOf(store.at(begin)),
              "0=INSERT|100=AcDbEntity|8=VELMO_GFRZ|100=AcDbBlockReference|2=VELMO_GB|10=1.0|"
              "20=0.0|30=0.0|66=1|");
    const auto attribute = [](const std::string& text) {
        return "0=ATTRIB|100=AcDbEntity|8=VELMO_GFRZ|100=AcDbText|10=1.0|20=0.0|30=0.0|40=1.0|1=" +
               text + "|100=AcDbAttribute|280=0|2=VELMO_GB|70=1|73=25|\n";
    };
    EXPECT_EQ(contents(begin),
              attribute(host::formatHandle(entityOf(store, "INSERT", 1).handle)) + attribute("1"));
}

TEST(Storage, OnlyAFirstAttributeMakesAMarker) {
    Scene scene("line");
    tests::insertBlock(L"VELMO_GB", L"");
    tests::insertBlock(L"VELMO_GE", L"");
    const wchar_t* const tags[] = {L"OTHER", L"VELMO_GE"};
    for (int i = 0; i < 3; ++i) {
        Opened<AcDbAttribute> attribute;
        openAttribute(scene, i / 2, i % 2, attribute);
        if (i < 2) attribute->setTag(tags[i]);
        if (i == 2) attribute->erase();  // a reference without what its block defines
    }
    scene.after(L"VelmoGROUPMAKE ALL\n\n");
    scene.click({2});
    EXPECT_EQ(scene.picked(), "1 2 3 4 5");
    const AcDbObjectId erased = scene.entities()[1];
    scene.after(L"ERASE #2\n\n");
    FirstAttribute first;
    EXPECT_TRUE(readFirstAttribute(erased, first));
}

TEST(Storage, TellsOfTheLinetypeTableAndOfTheLayerTableThatCannotBeOpened) {
    std::string told;
    for (long call = 1; call <= 5; ++call) {
        Scene scene("line");
        host::clearEffects();
        host::setFaultPlan({call, false, "AcDbDatabase::getSymbolTable"});
        AcDbObjectId block;
        createMarkerBlock(block, L"VELMO_GB");
        host::setFaultPlan({});
        told += Scene::printed() == "\nUnable to open the layer table Aborting..." ? "told" : "-";
        told += block.isNull() ? ", no block; " : "; ";
    }
    // Linetypes; blocks and layers for the prefix; layers; blocks.
    EXPECT_EQ(told, "told, no block; -; -; told; -, no block; ");
}

/// Where the markers are, and the text of one.
std::string markerAt(const Scene& scene, const AcDbObjectId& id) {
    return tests::markerPlaces(scene.store()) + " " + host::toUtf8(readMarkerText(id, kMarkerText));
}

TEST(Storage, AMarkerIsMovedWhenItStandsFartherThanAHundredth) {
    Scene scene("(line)");
    const AcDbObjectId begin = scene.entities()[0];
    updateMarker(begin, {1.009, 0.0, 0.0}, L"one", L"2");
    EXPECT_EQ(markerAt(scene, begin), "1.0(1.0 1.0) 1.0(1.0) one");
    updateMarker(begin, {1.011, 0.0, 0.0}, L"two", L"2");
    EXPECT_EQ(markerAt(scene, begin), "1.011(1.011 1.011) 1.0(1.0) two");
    Opened<AcDbAttribute> attribute;
    openAttribute(scene, 0, 0, attribute);
    attribute->setPosition({5.0, 0.0, 0.0});
    attribute.close();
    updateMarker(begin, {1.011, 0.0, 0.0}, L"three", L"2");
    EXPECT_EQ(markerAt(scene, begin), "1.011(1.011 1.011) 1.0(1.0) three");
}

}  // namespace
