// VelmoGROUPDELETE: dissolving groups, from the pick-first set and by prompt.
#include "common/scene.h"

namespace {

using tests::Scene;

const std::string kPick = "\nPick group(s) to explode: \nSelect objects: ";

TEST(Ungroup, MembersOfOneGroupCountOnceAndMarkersNot) {
    Scene scene("(line line) (line line) line");
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE #2 #3 #1 #7 #9\n\n"),
              "line line line line line |  | " + kPick +
                  "\n1 found\nSelect objects: \n1 found, 2 total\nSelect objects: "
                  "\n1 found, 3 total\nSelect objects: \n1 found, 4 total\nSelect objects: "
                  "\n1 found, 5 total\nSelect objects: \n4 Entities Ungrouped.");
}

TEST(Ungroup, OfAPickedGroupIsFollowedByOnePickThatIsNotWidened) {
    Scene scene("(line line) (circle)");
    scene.click({3});
    const std::string order = "line line begin(1) circle* end | ";
    EXPECT_EQ(scene.after(L"VelmoGROUPDELETE\n"), order + " | \n2 Entities Ungrouped.");
    EXPECT_EQ(scene.click({4}), order + "4 | ");
    EXPECT_EQ(scene.click({1}), order + "1 3 4 5 | " + tests::kGathering);
}

TEST(Ungroup, AMarkerThatGoesMayMakeAGroupOfWhatWasNone) {
    Scene scene("(line line line line line)");
    scene.after(L"VelmoGROUPNOTACTIVE\nERASE #2 #3\n\n");
    scene.after(L"COPY #2 #3\n\n0,0 0,9\n\n");
    scene.after(L"COPY #5\n\n0,0 0,9\n\n");
    ASSERT_EQ(scene.order(), "begin(5) line* line* line* end line* line* end");
    scene.after(L"VelmoGROUPDELETE #6 #5 #7\n\n");
    EXPECT_EQ(scene.order(), "line line line line line");
}

}  // namespace
