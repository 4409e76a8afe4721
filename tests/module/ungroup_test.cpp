// VelmoGROUPDELETE: dissolving groups, from the pick-first set and by prompt.
#include "common/scene.h"

namespace {

using host::Switches;
using tests::kGathering;
using tests::kNotGrouped;
using tests::Scene;
using tests::underEachSetting;

const std::string kPick = "\nPick group(s) to explode: \nSelect objects: ";

TEST(Ungroup, OneMemberPickedAtThePromptDissolvesItsGroupInPlace) {
    underEachSetting([](const Switches& settings) {
        Scene scene("line (line circle line) (line)", settings);
        EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #4\n\n"),
                  "line line circle line begin(1) line* end |  | " + kPick +
                      "\n1 found\nSelect objects: \n3 Entities Ungrouped.");
    });
}

TEST(Ungroup, MembersOfOneGroupCountOnceAndMarkersNot) {
    Scene scene("(line line) (line line) line");
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #2 #3 #1 #7 #9\n\n"),
              "line line line line line |  | " + kPick +
                  "\n1 found\nSelect objects: \n1 found, 2 total\nSelect objects: "
                  "\n1 found, 3 total\nSelect objects: \n1 found, 4 total\nSelect objects: "
                  "\n1 found, 5 total\nSelect objects: \n4 Entities Ungrouped.");
}

TEST(Ungroup, AMarkerPickedAloneGoesAndTheGroupStaysLoose) {
    Scene scene("(line line)");
    EXPECT_EQ(
        scene.after(L"VelmoGROUPDELETE #1\n\n"),
        "line* line* end? |  | " + kPick + "\n1 found\nSelect objects: \n0 Entities Ungrouped.");
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #1\n\n"),  // does not verify: left as it is
              "line* line* end? |  | " + kPick + "\n1 found\nSelect objects: " + kNotGrouped +
                  "\n0 Entities Ungrouped.");
}

TEST(Ungroup, WithoutAGroupNothingChanges) {
    Scene scene("line");
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #1\n\n"),
              "line |  | " + kPick + "\n1 found\nSelect objects: \n0 Entities Ungrouped.");
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE\n\n"), "line |  | " + kPick + "\nNothing selected");
}

TEST(Ungroup, TheModeIsNotAskedAtThePrompt) {
    Scene scene("(line line)");
    scene.after(L"VelmoGROUPNOTACTIVE\n");
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #3\n\n"),
              "line line |  | " + kPick + "\n1 found\nSelect objects: \n2 Entities Ungrouped.");
}

TEST(Ungroup, AWidenedPickfirstSetDissolvesWithoutAPrompt) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line line) (line line)", settings);
        scene.click({3});
        // Reading the set clears it, which the pick reactor may learn of at once or later.
        const bool learns = settings.dropNotifiesPickfirst && settings.emptyPickfirstIsNorm &&
                            settings.pickfirstNotifiedInside;
        EXPECT_EQ(scene.after(L"VelmoGROUPDELETE\n"),
                  std::string("line line line begin(2) line* line* end |  | ") +
                      (learns ? kGathering : "") + "\n3 Entities Ungrouped.");
    });
}

TEST(Ungroup, TheNextChangeOfThePickfirstSetIsIgnored) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line) (line line)", settings);
        scene.click({2});
        scene.after(L"VelmoGROUPDELETE\n");
        const std::string order = "line begin(2) line* line* end | ";
        const bool spent = settings.dropNotifiesPickfirst && !settings.pickfirstNotifiedInside;
        EXPECT_EQ(scene.click({1}), order + "1 | " + (spent ? kGathering : ""));
        scene.after(L"PICK NONE\n");
        EXPECT_EQ(scene.click({4}), order + "2 4 3 5 | " + kGathering);
    });
}

TEST(Ungroup, WithGroupingOffAPickfirstSetIsTakenAsItStands) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line line)", settings);
        scene.after(L"VelmoGROUPNOTACTIVE\n");
        scene.click({3, 5});
        EXPECT_EQ(scene.after(L"VelmoGROUPDELETE\n"),
                  "begin(3)? line* line line* |  | \n1 Entities Ungrouped.");
    });
}

}  // namespace
