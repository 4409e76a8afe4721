// Whatever call of the host fails in a group's life: nothing is lost, left open or beyond repair.
#include "every_fault.h"
#include "common/scratch.h"
#include "gtest/gtest.h"
#include "host/control/faults.h"
#include "host/editor/state/notify.h"

namespace {

using tests::failEveryCall;
using tests::FaultScenario;
using tests::kModule;
using tests::Scene;

/// Scenarios of one script.
const struct Scripted {
    const char* name;
    const char* words;
    std::vector<int> clicks;  ///< on entities, before calls fail
    const wchar_t* script;
    bool moves = false;
    const wchar_t* menuGroup = L"";

    friend std::ostream& operator<<(std::ostream& out, const Scripted& each) {
        return out << each.name;
    }
} kScripts[] = {
    {"MakingTheFirstGroup", "circle line line", {}, L"VelmoGROUPMAKE #1 #3\n\n"},
    {"MakingAGroupOfPickedEntities", "circle (line) line", {1, 5}, L"VelmoGROUPMAKE\n"},
    {"EnlargingGroups", "(line circle) line (circle)", {}, L"VelmoGROUPMAKE #2 #5 #7\n\n"},
    {"EnlargingPickedGroups", "(line circle) line (circle)", {2, 5, 7}, L"VelmoGROUPMAKE\n"},
    {"Ungrouping", "(line line) circle (circle)", {}, L"VelmoGROUPDELETE #2 #5 #6\n\n"},
    {"UngroupingPickedGroups", "(line line) circle (circle)", {2, 7}, L"VelmoGROUPDELETE\n"},
    {"RemovingMembers", "(line circle line) (circle)", {}, L"VelmoGROUPREMOVEMEMBER #3 #7\n\n"},
    {"Copying", "(line circle) (line)", {2, 6}, L"COPY 0,0 50,0\n\n"},
    {"Mirroring", "(line circle) line", {2}, L"MIRROR 20,0 20,1 N\n"},
    {"MirroringWithoutSources", "(line circle) line", {2}, L"MIRROR 20,0 20,1 Y\n", true},
    {"CopyingAndPasting", "(line circle) line", {2}, L"COPYCLIP\nPASTECLIP 50,0\n"},
    {"CuttingAndPasting", "(line circle) line", {2}, L"CUTCLIP\nPASTECLIP 50,0\n", true},
    {"PastingElsewhere", "(line)", {2}, L"COPYCLIP\nNEW\nPASTECLIP 5,5\nREGEN\nPASTECLIP 9,9\n"},
    {"SwitchingOff", "(line) line", {}, L"VelmoGROUPNOTACTIVE\n", false, L"Pelltrix"},
    {"SwitchingOn", "(line) line", {}, L"VelmoGROUPACTIVE\n", false, L"Pelltrix"},
};

class EveryFaultOfAScript : public testing::TestWithParam<Scripted> {};

TEST_P(EveryFaultOfAScript, LosesNothing) {
    const Scripted& each = GetParam();
    FaultScenario scenario{each.words, [&](Scene& scene) { scene.after(each.script); }};
    scenario.before = [&](Scene& scene) {
        for (const int position : each.clicks)
            scene.click({position});
    };
    scenario.moves = each.moves;
    scenario.menuGroup = each.menuGroup;
    failEveryCall(scenario);
}

INSTANTIATE_TEST_SUITE_P(, EveryFaultOfAScript, testing::ValuesIn(kScripts),
                         [](const auto& test) { return test.param.name; });

/// The entities of the user's stand last, among them a block reference with attributes: none of
/// them may be taken for a marker.
TEST(EveryFault, MakingAGroupBeforeABlockWithAttributes) {
    FaultScenario scenario{"", [](Scene& scene) { scene.after(L"VelmoGROUPMAKE #4 #5\n\n"); }};
    scenario.file = std::string(TESTS_FOLDER) + "/module/mixed_members.dxf";
    scenario.before = [](Scene& scene) {
        scene.after(L"COPY #4\n\n0,0 1,1\n\n");
        scene.after(L"COPY #1\n\n0,0 7,7\n\n");
        ASSERT_EQ(scene.order(), "insert polyline polyline line line insert");
    };
    failEveryCall(scenario);
}

TEST(EveryFault, PickingAndUnpicking) {
    FaultScenario scenario{"(line line) circle (circle)", [](Scene& scene) {
                               scene.click({2});
                               scene.click({5, 7});
                               scene.shiftClick({3});
                           }};
    failEveryCall(scenario);
}

TEST(EveryFault, CopyingWhereAFailedConversionLeavesItsOutputAlone) {
    FaultScenario scenario{"(line) line", [](Scene& scene) {
                               scene.after(L"COPYCLIP\nPASTECLIP 50,0\nCOPY 0,0 9,0\n\n");
                           }};
    scenario.before = [](Scene& scene) {
        host::switches().failedIdIsNull = false;
        scene.click({2});
    };
    failEveryCall(scenario);
}

/// Takes a member out of the first group behind the module's back.
void breakGroups(Scene& scene) { scene.after(L"VelmoGROUPNOTACTIVE\nERASE #3\n\n"); }

TEST(EveryFault, RepairingByRegeneration) {
    failEveryCall({"(line circle line) (line) (circle circle)",
                   [](Scene& scene) { scene.after(L"REGEN\n"); }, breakGroups});
}

TEST(EveryFault, Saving) {
    const tests::ScratchFolder folder;
    FaultScenario scenario{"(line circle line) (line)", [&](Scene& scene) {
                               EXPECT_TRUE(scene.session().saveDrawing(folder.file("saved.dxf")));
                           }};
    scenario.before = breakGroups;
    failEveryCall(scenario);
}

TEST(EveryFault, LoadingADrawingWithGroups) {
    const tests::ScratchFolder folder;
    const std::string other = folder.file("other.dxf");
    {
        Scene scene("(circle line)");
        ASSERT_TRUE(scene.session().saveDrawing(other));
    }
    FaultScenario scenario{"(line circle) line", [other](Scene& scene) {
                               EXPECT_TRUE(scene.session().openDrawing(other));
                               scene.click({2});
                           }};
    failEveryCall(scenario);
}

TEST(EveryFault, LoadingTheModule) {
    FaultScenario scenario{"(line circle) line",
                           [](Scene& scene) { scene.session().modules.load(MODULE_FILE); }};
    scenario.menuGroup = L"Morvanta";
    scenario.before = [](Scene& scene) { scene.session().modules.unload(kModule); };
    scenario.after = [](Scene& scene) {
        // A module that could not unlock itself stays.
        if (!scene.session().modules.unload(kModule)) return;
        EXPECT_TRUE(scene.session().modules.load(MODULE_FILE));
    };
    failEveryCall(scenario);
}

TEST(EveryFault, WithoutMemoryForItsReactorTheModuleGoesOnWithoutIt) {
    Scene scene("line", {}, L"Morvanta");
    scene.session().sendMessage(kModule, AcRx::kUnloadAppMsg);
    host::clearEffects();
    host::setHeapFault(1);
    scene.session().sendMessage(kModule, AcRx::kInitAppMsg);
    EXPECT_EQ(host::editorReactors().count(), 0);
    EXPECT_EQ(host::effectText(host::EffectKind::MenuCommand), L"GMorvanta.ID_GRP_ON=~");
    scene.after(L"VelmoGROUPMAKE #1\n\n");
    EXPECT_EQ(scene.click({2}), "begin(1) line* end | 2 | ");
}

TEST(EveryFault, UnloadingTheModule) {
    FaultScenario scenario{"(line circle) line",
                           [](Scene& scene) { scene.session().modules.unload(kModule); }};
    scenario.after = [](Scene& scene) { EXPECT_TRUE(scene.session().modules.load(MODULE_FILE)); };
    failEveryCall(scenario);
}

}  // namespace
