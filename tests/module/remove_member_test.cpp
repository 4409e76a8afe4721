// VelmoGROUPREMOVEMEMBER: single entities leave their groups, one pick at a time.
#include "common/drawing_order.h"
#include "common/scene.h"

namespace {

using host::Switches;
using tests::kNotGrouped;
using tests::Scene;
using tests::underEachSetting;

const std::string kSelectMember = "\nSelect member of VelmoGroup: ";
const std::string kCleaned = "\nEntity cleaned." + kSelectMember;
const std::string kNothing = "\nNothing selected";

/// What is printed when a member leaves a group that goes on with `left` members.
std::string removed(int left) {
    return "\nEntity Removed, " + std::to_string(left) + " still in the Group." + kSelectMember;
}

TEST(RemoveMember, AMemberMovesBehindEverythingWithoutItsRecord) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line circle line) line", settings);
        EXPECT_EQ(
            scene.after(L"VelmoGROUPREMOVEMEMBER #3\n\n"),
            "begin(2) line* line* end line circle |  | " + kSelectMember + removed(2) + kNothing);
        EXPECT_EQ(tests::markerPlaces(scene.store()), "1.0(1.0 1.0) 1.0(1.0)");
        EXPECT_EQ(scene.click({3}), "begin(2) line* line* end line circle | 1 3 2 4 | " +
                                        std::string(tests::kGathering));
    });
}

TEST(RemoveMember, SeveralLeaveInOneRunAndTheLastTakesTheMarkersAlong) {
    Scene scene("(line circle)");
    EXPECT_EQ(scene.after(L"VelmoGROUPREMOVEMEMBER #2 #3\n\n"),
              "line circle |  | " + kSelectMember + removed(1) + kCleaned + kNothing);
}

TEST(RemoveMember, WhatIsNoMemberIsRefusedAndAskedAgain) {
    Scene scene("line (line)");
    const std::string refused = "\nNo valid Group member selected." + kSelectMember;
    EXPECT_EQ(scene.after(L"VelmoGROUPREMOVEMEMBER #1 #2\n\n"),
              "line begin(1) line* end |  | " + kSelectMember + refused + refused + kNothing);
    EXPECT_EQ(scene.after(L"VelmoGROUPREMOVEMEMBER 500,500\n"),
              "line begin(1) line* end |  | " + kSelectMember + kNothing);
}

TEST(RemoveMember, OfAGroupThatDoesNotVerifyOnlyTheEntityIsCleaned) {
    Scene scene("(line circle)");
    scene.after(L"ERASE #4\n\n");
    EXPECT_EQ(scene.after(L"VelmoGROUPREMOVEMEMBER #2\n\n"),
              "begin(2)? circle* line |  | " + kSelectMember + kNotGrouped + kCleaned + kNothing);
}

TEST(RemoveMember, TheCountIsLoweredNotTakenAnew) {
    Scene scene("(line circle line)");
    scene.after(L"ERASE #2\n\n");
    EXPECT_EQ(scene.after(L"VelmoGROUPREMOVEMEMBER #3\n\n"),
              "begin(2) circle* end line |  | " + kSelectMember +
                  "\nNote: 1 member(s) missing from original Group." + removed(2) + kNothing);
}

}  // namespace
