// Copies of groups: which commands make groups of their own of them, and when.
#include "common/scene.h"
#include "gtest/gtest.h"

namespace {

using tests::Scene;

constexpr const char* kTwoGroups = "begin(2) line* line* end begin(2) line* line* end";

TEST(Copies, ACopyOfAWidenedSelectionIsAGroupOfItsOwn) {
    Scene scene("(line line)");
    scene.click({2});
    scene.after(L"COPY 0,0 50,0\n\n");
    EXPECT_EQ(scene.order(), kTwoGroups);
    // The source is untouched and the copy verifies from each of its members.
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #6\n\n").substr(0, 34),
              "begin(2) line* line* end line line");
}

TEST(Copies, GroupsCopiedTogetherAreLinkedPairwise) {
    Scene scene("(line) (circle)");
    scene.click({2});
    scene.click({5});
    scene.after(L"COPY 0,0 50,0\n\n");
    EXPECT_EQ(scene.order(),
              "begin(1) line* end begin(1) circle* end begin(1) line* end begin(1) circle* end");
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

TEST(Copies, ACutGroupComesBackWithAPaste) {
    Scene scene("(line line) circle");
    scene.click({3});
    scene.after(L"CUTCLIP\n");
    ASSERT_EQ(scene.order(), "circle");
    scene.after(L"PASTECLIP 50,0\n");
    EXPECT_EQ(scene.order(), "circle begin(2) line* line* end");
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

TEST(Copies, ACancelledCopyLeavesTheSourceAndTheNextCopyIsTracked) {
    Scene scene("(line line) circle");
    scene.click({3});
    scene.after(L"COPY\n");  // the script ends inside the command: cancelled
    EXPECT_EQ(scene.order(), "begin(2) line* line* end circle");
    scene.click({3});
    scene.after(L"COPY 0,0 50,0\n\n");
    EXPECT_EQ(scene.order(), "begin(2) line* line* end circle begin(2) line* line* end");
}

}  // namespace
