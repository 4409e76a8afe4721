// VelmoGROUPMAKE: what a drawing looks like before and after.
#include "common/checks.h"
#include "common/drawing_order.h"
#include "common/scene.h"
#include "host/editor/selection/selection_sets.h"
#include "host/editor/state/document_state.h"
#include "storage_pieces.h"

namespace {

using tests::drawingOrder;
using tests::entityOf;
using tests::handent;
using tests::kNotGrouped;
using tests::Scene;

const std::string kSelectEntities = "\nSelect entities to form an VelmoGroup: \nSelect objects: ";

void open(Scene& scene, const char* file) {
    ASSERT_TRUE(scene.session().openDrawing(TESTS_FOLDER + std::string("/module/") + file));
}

TEST(MakeGroup, NothingSelectedChangesNothing) {
    Scene scene("line");
    EXPECT_EQ(scene.after(L"VelmoGROUPMAKE\n\n"),
              "line |  | " + kSelectEntities + "\nNothing selected");
    EXPECT_EQ(scene.store().symbol("BLOCK_RECORD", L"VELMO_GB"), nullptr);
}

TEST(MakeGroup, WhatOwnsSubEntitiesIsOneMemberUnlessItIsA3dPolyline) {
    Scene scene("");
    open(scene, "mixed_members.dxf");
    scene.after(L"VelmoGROUPMAKE #1 #2 #4\n\n");
    EXPECT_EQ(scene.order(), "polyline begin(3) insert* polyline* line* end");
    EXPECT_EQ(scene.after(L"VelmoGROUPMAKE #5\n\n"),
              "polyline begin(3) line* insert* polyline* end |  | " + kSelectEntities +
                  "\n1 found\nSelect objects: ");
    scene.after(L"VelmoGROUPMAKE #1 #3\n\n");
    ASSERT_EQ(scene.order(), "begin(4) polyline* line* insert* polyline* end");
    EXPECT_EQ(scene.after(L"VelmoGROUPMAKE #3\n\n"),
              "begin(4) polyline* insert* polyline* end begin(1) line* end |  | " +
                  kSelectEntities + "\n1 found\nSelect objects: " + kNotGrouped);
}

TEST(MakeGroup, EntityWithItsOwnExtensionDictionaryGetsNoRecord) {
    Scene scene("");
    open(scene, "own_dictionary.dxf");
    scene.after(L"VelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(scene.order(), "begin(2) circle line* end");
}

TEST(MakeGroup, AnOlderGroupLayerKeepsItsPrefixAndGetsItsColourBack) {
    Scene scene("line");
    tests::addRecord<AcDbLayerTable, AcDbLayerTableRecord>(L"KEST_GFRZ");
    scene.after(L"VelmoGROUPMAKE #1\n\n");
    EXPECT_EQ(scene.click({2}), std::string("begin(1) line* end | 1 2 3 | ") + tests::kGathering);
    const host::Store& store = scene.store();
    EXPECT_NE(store.symbol("BLOCK_RECORD", L"KEST_GE"), nullptr);
    EXPECT_EQ(store.symbol("BLOCK_RECORD", L"VELMO_GB"), nullptr);
    const std::string_view layer = store.symbol("LAYER", L"KEST_GFRZ")->tags();
    EXPECT_EQ(host::rawTag(layer, 62), "7");
    EXPECT_EQ(host::rawTag(layer, 6), "Continuous");
}

TEST(MakeGroup, WorksInTheSpaceOfTheUser) {
    Scene scene("");
    const host::Store& store = scene.store();
    scene.run(L"SETVAR TILEMODE 0\nLINE 1,1 2,2\n\nVelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(drawingOrder(store, store.paperSpace()), "begin(1) line* end");
    // A viewport of model space inside the layout: the clones move to model space.
    const std::wstring member = handent(store.idOf(entityOf(store, "LINE", 0, store.paperSpace())));
    scene.run(L"SETVAR CVPORT 2\nVelmoGROUPMAKE " + member + L"\n\n");
    EXPECT_EQ(drawingOrder(store, store.paperSpace()), "");
    EXPECT_EQ(scene.order(), "begin(1) line* end");
    scene.run(L"SETVAR CVPORT 1\nSETVAR TILEMODE 1\n");
    scene.after(L"VelmoGROUPMAKE #2\n\n");
    EXPECT_EQ(scene.order(), "begin(1) line* end");
}

TEST(MakeGroup, OfASelectionAcrossSpacesOnlyTheFirstOwnersEntitiesSurvive) {
    Scene scene("line");
    const host::Store& store = scene.store();
    scene.run(L"SETVAR TILEMODE 0\nCIRCLE 1,1 2\nSETVAR TILEMODE 1\n");
    scene.run(L"VelmoGROUPMAKE " + handent(store.idOf(entityOf(store, "LINE"))) + L" " +
              handent(store.idOf(entityOf(store, "CIRCLE", 0, store.paperSpace()))) + L"\n\n");
    EXPECT_EQ(scene.order(), "begin(2) line* end");
    EXPECT_EQ(drawingOrder(store, store.paperSpace()), "");
}

TEST(MakeGroup, AsksForAPointOnlyWhenNoEntityHasOne) {
    Scene scene("");
    open(scene, "no_point.dxf");
    const std::string asks =
        kSelectEntities + "\n1 found\nSelect objects: \nPick insertion point for group markers: ";
    EXPECT_EQ(scene.after(L"VelmoGROUPMAKE ALL\n\n"), "body |  | " + asks + "*Cancel*");
    EXPECT_NE(scene.store().symbol("BLOCK_RECORD", L"VELMO_GB"), nullptr);
    EXPECT_TRUE(host::currentDocumentState()->highlighted.empty());
    scene.after(L"VelmoGROUPMAKE ALL\n\n\n4,5\n");  // empty input is refused
    EXPECT_EQ(scene.order(), "begin(1) body* end");
    EXPECT_EQ(tests::markerPlaces(scene.store()), "4.0(4.0 4.0) 4.0(4.0)");
    EXPECT_EQ(tests::takeFaults().size(), 1u) << "its set is kept, by design";
    host::resetSelectionSets();
    host::clearModuleFaults();
}

TEST(MakeGroup, HighlightsWhatItWillGroupUnlessItIsPicked) {
    Scene scene("(line line line) line");
    scene.after(L"VelmoGROUPMAKE #2\n\n");
    std::string modes;
    for (const std::wstring& redraw : host::effectTexts(host::EffectKind::Redraw))
        modes += host::toUtf8(redraw.substr(0, 2));
    EXPECT_EQ(modes, "3 3 3 3 3 ");  // three members and two markers, never taken back
    scene.after(L"PICK #1\nVelmoGROUPMAKE\n");
    EXPECT_TRUE(host::effectTexts(host::EffectKind::Redraw).empty());
}

}  // namespace
