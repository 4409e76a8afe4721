// Copies of groups: which commands make groups of their own of them, and when.
#include "gtest/gtest.h"
#include "storage_pieces.h"

namespace {

using tests::Scene;

constexpr const char* kTwoGroups = "begin(2) line* line* end begin(2) line* line* end";

TEST(Copies, ACopyOfAWidenedSelectionIsAGroupOfItsOwn) {
    Scene scene("(line line)");
    scene.click({2});
    scene.after(L"COPY 0,0 50,0\n\n");
    EXPECT_EQ(scene.order(), kTwoGroups);
    EXPECT_EQ(tests::markerPlaces(scene.store()),
              "1.0(1.0 1.0) 1.0(1.0) 51.0(51.0 51.0) 51.0(51.0)");
    // The source is untouched and the copy verifies from each of its members.
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #6\n\n").substr(0, 34),
              "begin(2) line* line* end line line");
}

/// Order after a COPY of what the clicks select once the marker at `erased` is gone.
std::string copiedWithout(const std::wstring& erased, std::vector<int> clicks) {
    Scene scene("(line) (circle)");
    scene.after(L"ERASE " + erased + L"\n\n");
    for (const int position : clicks)
        scene.click({position});
    scene.after(L"COPY 0,0 50,0\n\n");
    return scene.order();
}

TEST(Copies, OnlyABeginMarkerAndTheEndMarkerBehindItAreLinked) {
    EXPECT_EQ(copiedWithout(L"#3", {4, 1}),
              "begin(1)? line* begin(1) circle* end begin(1)? begin(1) circle* end");
    EXPECT_EQ(copiedWithout(L"#4", {2, 5}),
              "begin(1) line* end circle* end? begin(1) line* end end?");
}

/// Repair knows markers by the names of their blocks and leaves alone what has just their tags.
TEST(Copies, APasteIsLinkedByTheTagsOfItsMarkers) {
    Scene scene("(line)");
    for (const int marker : {2, 3}) {
        const std::wstring suffix = marker == 2 ? L"_GB" : L"_GE";
        tests::insertBlock(L"OTHER" + suffix, L"none");
        Opened<AcDbAttribute> attribute;
        tests::openAttribute(scene, marker, 0, attribute);
        attribute->setTag((L"VELMO" + suffix).c_str());
    }
    ASSERT_EQ(scene.order(), "begin(1) line* end begin()? end?");
    for (const int position : {2, 4, 5})
        scene.click({position});
    scene.after(L"COPYCLIP\nPASTECLIP 50,0\n");
    EXPECT_EQ(scene.order(), "begin(1) line* end begin()? end? begin(1) line* end begin() end");
}

TEST(Copies, AMirrorKeepsTheSourcesOrMovesThemWithoutCopies) {
    Scene scene("(line line)");
    scene.click({2});
    scene.after(L"MIRROR 20,0 20,1 N\n");
    EXPECT_EQ(scene.order(), kTwoGroups);
    scene.click({2});
    scene.after(L"MIRROR 20,0 20,1 Y\n");
    EXPECT_EQ(scene.order(), kTwoGroups);
}

TEST(Copies, EveryPasteOfTheSameClipboardIsAGroup) {
    Scene scene("(line line)");
    scene.click({2});
    scene.after(L"COPYCLIP\n");
    EXPECT_EQ(scene.after(L"PASTECLIP 50,0\n"),
              std::string(kTwoGroups) + " |  | \nSpecify insertion point: \n2 Groups Updated. ");
    scene.after(L"PASTECLIP 90,0\n");
    EXPECT_EQ(scene.order(), std::string(kTwoGroups) + " begin(2) line* line* end");
    scene.click({3});
    EXPECT_EQ(scene.picked(), "1 3 2 4");
}

/// A window lists the newest first, and the module puts what it adds behind.
TEST(Copies, OfAGroupPickedByAWindowHoldTogetherOnlyInDrawingOrder) {
    for (const bool inOrder : {true, false}) {
        host::Switches settings;
        settings.copiesInDrawingOrder = inOrder;
        Scene scene("(line line line)", settings);
        scene.after(L"PICK W 0,-1 9,9\n");
        ASSERT_EQ(scene.picked(), "3 1 5 2 4");
        scene.after(L"COPY 0,0 50,0\n\nREGEN\n");
        const std::string group = "begin(3) line* line* line* end";
        EXPECT_EQ(scene.order(), inOrder ? group + " " + group : group + " line* line* line*");
    }
}

TEST(Copies, ThePickBehindCopyclipIsWidenedOnlyWhenTheHostNotifiesOnce) {
    for (const bool notifies : {true, false}) {
        host::Switches settings;
        settings.copyClipNotifiesPickfirst = notifies;
        Scene scene("(line) (circle)", settings);
        scene.click({2});
        scene.after(L"COPYCLIP\n");
        scene.click({5});
        EXPECT_EQ(scene.picked(), notifies ? "1 2 3 4 5 6" : "1 2 3 5");
    }
}

/// The paste finds no last entity, and by switch an id that was noted before.
TEST(Copies, APasteIntoAnEmptiedDrawingIsAGroup) {
    for (const bool isNull : {true, false}) {
        host::Switches settings;
        settings.failedIdIsNull = isNull;
        Scene scene("(line)", settings);
        scene.click({2});
        scene.after(L"COPY 0,0 9,0\n\n");
        scene.click({2});
        scene.after(L"COPYCLIP\nPICK NONE\nERASE ALL\n\n");
        ASSERT_EQ(scene.order(), "");
        scene.after(L"PASTECLIP 50,0\n");
        EXPECT_EQ(scene.order(), "begin(1) line* end") << isNull;
    }
}

TEST(Copies, APasteIntoAnotherDrawingMakesGroupsOnlyWhereTheClipboardWasFilled) {
    Scene scene("(line line)");
    scene.click({2});
    scene.after(L"COPYCLIP\n");
    scene.session().newDrawing();
    scene.after(L"PASTECLIP 50,0\n");
    // This drawing's own record knows of no grouped clipboard: the markers wait for a repair.
    EXPECT_EQ(scene.order(), "begin(2)? line* line* end?");
    scene.after(L"REGEN\n");
    EXPECT_EQ(scene.order(), "begin(2) line* line* end");
}

}  // namespace
