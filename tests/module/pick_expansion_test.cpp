// Picking one member selects its group: the pick-first set after each step.
#include "common/scene.h"
#include "host/control/faults.h"

namespace {

using host::Switches;
using tests::kGathering;
using tests::Scene;
using tests::underEachSetting;

/// "(line line) line line" when drawn.
const std::string kGroupAndLines = "begin(2) line* line* end line line | ";

TEST(PickExpansion, WithPickfirstOffGroupingGoesOffAndComesBackWithIt) {
    Scene scene("line (line line)", {}, L"Morvanta");
    const std::string order = "line begin(2) line* line* end | ";
    scene.after(L"SETVAR PICKFIRST 0\n");
    EXPECT_EQ(scene.click({3}), order + " |  | GMorvanta.ID_GRP_OFF=~, GMorvanta.ID_GRP_ON=");
    scene.after(L"SETVAR PICKFIRST 1\n");
    EXPECT_EQ(scene.click({3}), order + "3 | ");
    scene.after(L"SETVAR PICKFIRST 0\nVelmoGROUPACTIVE\n");
    EXPECT_EQ(scene.click({4}), order + "2 4 3 5 | " + kGathering);
}

TEST(PickExpansion, EachDrawingRemembersWhatItGathered) {
    underEachSetting([](const Switches& settings) {
        Scene scene("(line line) line line", settings);
        scene.click({2});
        scene.session().newDrawing();
        scene.draw("(line line) line line");
        EXPECT_EQ(scene.click({2}), kGroupAndLines + "1 2 3 4 | " + kGathering);
        scene.session().activate(*scene.session().documents.at(0));
        EXPECT_EQ(scene.click({5}), kGroupAndLines + "1 2 3 4 5 | " + kGathering);
        EXPECT_EQ(scene.shiftClick({3}), kGroupAndLines + "5 | " + kGathering);
    });
}

/// What the host and the module told each other and the user, in order.
std::vector<host::Effect> effectsUnder(const Switches& settings) {
    Scene scene("(line line) line", settings);
    scene.after(
        L"PICK W 0,-1 9,9\nCOPYCLIP\nPICK NONE\nPICK W 0,-1 9,9\nCOPY 0,0 50,0\n\n"
        L"PICK ALL\nMOVE 0,0 1,1\nVelmoGROUPMAKE ALL\n\n");
    return host::effects();
}

TEST(PickExpansion, EachSettingIsFelt) {
    const std::vector<host::Effect> usual = effectsUnder({});
    for (const auto& felt : tests::kFelt) {
        Switches settings;
        settings.*felt = !(settings.*felt);
        EXPECT_FALSE(effectsUnder(settings) == usual) << &felt - tests::kFelt;
    }
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

}  // namespace
