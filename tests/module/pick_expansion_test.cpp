// Picking one member selects its group: the pick-first set after each step.
#include "common/scene.h"
#include "host/control/faults.h"

namespace {

using host::Switches;
using tests::kGathering;
using tests::kNotGrouped;
using tests::Scene;
using tests::underEachSetting;

/// "line (line line line)", "(line line) (line line)" and "(line line) line line" when drawn.
const std::string kLineAndGroup = "line begin(3) line* line* line* end | ";
const std::string kTwoGroups = "begin(2) line* line* end begin(2) line* line* end | ";
const std::string kGroupAndLines = "begin(2) line* line* end line line | ";

TEST(PickExpansion, AMemberBringsItsGroupBehindWhatIsPicked) {
    underEachSetting([](const Switches& settings) {
        Scene scene("line (line line line)", settings);
        EXPECT_EQ(scene.click({1}), kLineAndGroup + "1 | " + kGathering);
        EXPECT_EQ(scene.click({4}), kLineAndGroup + "1 2 4 5 3 6 | " + kGathering);
        EXPECT_EQ(scene.click({3}), kLineAndGroup + "1 2 4 5 3 6 | ");  // picked already
    });
}

TEST(PickExpansion, AnotherGroupFollowsTheFirst) {
    underEachSetting([](const Switches& settings) {
        for (const wchar_t* pickAdd : {L"1", L"2"}) {
            Scene scene("(line line) (line line)", settings);
            scene.after(std::wstring(L"SETVAR PICKADD ") + pickAdd + L"\n");
            EXPECT_EQ(scene.click({3}), kTwoGroups + "1 3 2 4 | " + kGathering);
            EXPECT_EQ(scene.click({6}), kTwoGroups + "1 3 2 4 5 6 7 8 | " + kGathering);
        }
    });
}

TEST(PickExpansion, TheModuleSetsThePickfirstSetOnceForEachPick) {
    for (const bool inside : {true, false}) {
        Switches settings;
        settings.pickfirstNotifiedInside = inside;
        Scene scene("line (line line)", settings);
        scene.click({1});
        EXPECT_EQ(host::effectTexts(host::EffectKind::Notification).size(), 2u);
        scene.click({3});
        EXPECT_EQ(host::effectTexts(host::EffectKind::Notification).size(), 2u);
    }
}

TEST(PickExpansion, ShiftOnAMemberDropsItsGroup) {
    underEachSetting([](const Switches& settings) {
        const std::string atEmpty = settings.emptyPickfirstIsNorm ? kGathering : "";
        Scene scene("line (line line line)", settings);
        scene.click({1});
        scene.click({4});
        EXPECT_EQ(scene.shiftClick({5}), kLineAndGroup + "1 | " + kGathering);
        EXPECT_EQ(scene.shiftClick({1}), kLineAndGroup + " | " + atEmpty);
        EXPECT_EQ(scene.click({3}), kLineAndGroup + "2 3 4 5 6 | " + kGathering);
        EXPECT_EQ(scene.after(L"PICK NONE\n"), kLineAndGroup + " | " + atEmpty);
        EXPECT_EQ(scene.click({5}), kLineAndGroup + "2 5 3 4 6 | " + kGathering);
    });
}

TEST(PickExpansion, ShiftOnAMarkerDropsTheMarkerOnly) {
    Scene scene("(line line) line line");
    scene.click({2});
    EXPECT_EQ(scene.shiftClick({1}), kGroupAndLines + "2 3 4 | " + kGathering);
    EXPECT_EQ(scene.click({1}), kGroupAndLines + "2 3 4 1 | " + kGathering);
}

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

TEST(PickExpansion, AWindowOverOneGroupSelectsItWhole) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line line) line", settings);
        EXPECT_EQ(scene.after(L"PICK W 0,-1 3.5,2\n"),
                  std::string("begin(3) line* line* line* end line | ") +
                      (settings.newestFirst ? "3 1 5 2 4" : "3 1 5 4 2") + " | " + kGathering);
    });
}

TEST(PickExpansion, WithPickaddOffASinglePickStartsAfresh) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line) (line line)", settings);
        scene.after(L"SETVAR PICKADD 0\n");
        EXPECT_EQ(scene.click({2}), kTwoGroups + "1 2 3 4 | " + kGathering);
        EXPECT_EQ(scene.click({6}), kTwoGroups + "5 6 7 8 | " + kGathering);
        EXPECT_EQ(scene.shiftClick({3}), kTwoGroups + "5 6 7 8 1 3 2 4 | " + kGathering);
        // Two picks are fewer than what was gathered, so nothing is widened. Of the entities that
        // left, only the other group's are members.
        EXPECT_EQ(scene.click({6, 7}), kTwoGroups + "6 7 | " + kGathering);
        EXPECT_EQ(scene.click({2}), kTwoGroups + "1 2 3 4 | " + kGathering);
    });
}

TEST(PickExpansion, AnEqualCountChangesNothingAndTheNextPickIsSeen) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line) line line", settings);
        scene.click({5, 6});
        scene.after(L"SETVAR PICKADD 0\n");
        scene.click({5, 6});
        EXPECT_EQ(scene.click({2, 5}), kGroupAndLines + "2 5 | ");
        EXPECT_EQ(scene.click({3}), kGroupAndLines + "1 3 2 4 | " + kGathering);
    });
}

TEST(PickExpansion, AGroupThatDoesNotVerifyStaysAsPicked) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line) (line line)", settings);
        scene.after(L"ERASE #4\n\n");
        const std::string order = "begin(2)? line* line* begin(2) line* line* end | ";
        EXPECT_EQ(scene.click({2}), order + "2 | " + kGathering + kNotGrouped);
        EXPECT_EQ(scene.click({3, 5}), order + "2 3 4 5 6 7 | " + kGathering + kNotGrouped);
        EXPECT_EQ(scene.shiftClick({2}), order + "3 4 5 6 7 | " + kGathering + kNotGrouped);
    });
}

TEST(PickExpansion, MissingMembersAreAnnounced) {
    Scene scene("(line line line)");
    scene.after(L"ERASE #3\n\n");
    EXPECT_EQ(scene.click({3}), "begin(3) line* line* end | 1 3 2 4 | " + std::string(kGathering) +
                                    "\nNote: 1 member(s) missing from original Group.");
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

TEST(PickExpansion, AWidenedSelectionIsErasedWhole) {
    underEachSetting([](const Switches& settings) {
        Scene scene("line (line line)", settings);
        scene.click({4});
        scene.after(L"ERASE\n");
        EXPECT_EQ(scene.order(), "line");
        EXPECT_EQ(scene.picked(), "");
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
