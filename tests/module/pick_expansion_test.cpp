// Picking one member selects its group: the pick-first set after each step.
#include "common/scene.h"
#include "host/control/faults.h"

namespace {

using host::Switches;
using tests::kGathering;
using tests::Scene;
using tests::underEachSetting;

/// "(line line) (line line)" and "(line line) line line" when drawn.
const std::string kTwoGroups = "begin(2) line* line* end begin(2) line* line* end | ";
const std::string kGroupAndLines = "begin(2) line* line* end line line | ";

TEST(PickExpansion, SeveralPicksAreWalkedByPositionOverTheChangingList) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line) (line line)", settings);
        EXPECT_EQ(scene.click({2, 6}), kTwoGroups + "6 1 2 3 4 | " + kGathering);
        scene.after(L"PICK NONE\n");
        EXPECT_EQ(scene.after(L"PICK W 0,-1 9,2\n"),
                  kTwoGroups + (settings.newestFirst ? "6 2 5 8 1 3 4 7" : "3 7 1 4 5 6 8 2") +
                      " | " + kGathering);
    });
}

TEST(PickExpansion, WithPickaddOffASinglePickIsAFreshStart) {
    Scene scene("(line line) (line line)");
    scene.after(L"SETVAR PICKADD 0\n");
    scene.click({2});
    EXPECT_EQ(scene.click({7}), kTwoGroups + "5 7 6 8 | " + kGathering);
    EXPECT_EQ(scene.shiftClick({6}), kTwoGroups + " | " + kGathering);
}

TEST(PickExpansion, WithPickfirstOffGroupingGoesOff) {
    Scene scene("line (line line)", {}, L"Morvanta");
    const std::string order = "line begin(2) line* line* end | ";
    scene.after(L"SETVAR PICKFIRST 0\n");
    EXPECT_EQ(scene.click({3}), order + " |  | GMorvanta.ID_GRP_OFF=~, GMorvanta.ID_GRP_ON=");
    scene.after(L"SETVAR PICKFIRST 1\n");
    EXPECT_EQ(scene.click({3}), order + "3 | ");
}

TEST(PickExpansion, EachDrawingRemembersWhatItGathered) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line) line line", settings);
        scene.click({2});
        scene.session().newDrawing();
        scene.draw("(line line) line line");
        EXPECT_EQ(scene.click({2}), kGroupAndLines + "1 2 3 4 | " + kGathering);
        scene.session().activate(0);
        EXPECT_EQ(scene.click({5}), kGroupAndLines + "1 2 3 4 5 | " + kGathering);
        EXPECT_EQ(scene.shiftClick({3}), kGroupAndLines + "5 | " + kGathering);
    });
}

/// State after a pick of the last member of a group of two while calls of one name fail.
std::string clickWhileFailing(const char* call, long failAt) {
    Scene scene("(line line) line line");
    host::setFaultPlan({failAt, false, call});
    const std::string state = scene.click({3});
    host::setFaultPlan({});
    return state;
}

TEST(PickExpansion, AFailureToFillTheSetIsReportedAndTheRestGoesOn) {
    const std::string error = "Application VelmoGroup.arx ERROR: Unable to ";
    const std::string add = error + "add entity to selection set \"pickfirst_set\"\n";
    const std::string create = error + "create selection set \"pickfirst_set\"\n";
    EXPECT_EQ(clickWhileFailing("acedSSAdd", 3), kGroupAndLines + "1 3 4 | " + kGathering + add);
    EXPECT_EQ(clickWhileFailing("acedSSAdd", 1),
              kGroupAndLines + " | " + kGathering + create + add + add + add);
}

TEST(PickExpansion, WithoutAnAnswerFromTheHostTheGatheredSetIsForgotten) {
    Scene scene("(line line) line line");
    scene.click({2});
    host::setFaultPlan({1, false, "acedSSGetFirst"});
    EXPECT_EQ(scene.click({5}), kGroupAndLines + "1 2 3 4 5 | ");
    // Everything is new now: positions 1 and 3 of the walk hold members of the group.
    EXPECT_EQ(scene.click({6}), kGroupAndLines + "1 3 4 5 6 2 | " + kGathering);
}

}  // namespace
