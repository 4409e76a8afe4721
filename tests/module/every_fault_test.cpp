// Whatever call of the host fails in a group's life: nothing is lost, left open or beyond repair.
#include "every_fault.h"
#include "gtest/gtest.h"
#include "host/control/faults.h"
#include "host/editor/state/notify.h"

namespace {

using tests::failEveryCall;
using tests::FaultScenario;
using tests::Scene;

/// A scenario of one script.
FaultScenario scripted(const std::string& words, const std::wstring& script) {
    return {words, [script](Scene& scene) { scene.after(script); }};
}

/// The same behind clicks on entities.
FaultScenario picked(const std::string& words, std::vector<int> clicks,
                     const std::wstring& script) {
    FaultScenario scenario = scripted(words, script);
    scenario.before = [clicks](Scene& scene) {
        for (const int position : clicks) {
            scene.click({position});
        }
    };
    return scenario;
}

/// Takes a member out of the first group behind the module's back.
void breakGroups(Scene& scene) {
    scene.run(L"VelmoGROUPNOTACTIVE\n");
    scene.after(L"ERASE #3\n\n");
}

TEST(EveryFault, MakingTheFirstGroup) {
    failEveryCall(scripted("circle line line", L"VelmoGROUPMAKE #1 #3\n\n"));
}

TEST(EveryFault, MakingAGroupOfPickedEntities) {
    failEveryCall(picked("circle (line) line", {1, 5}, L"VelmoGROUPMAKE\n"));
}

TEST(EveryFault, EnlargingGroups) {
    failEveryCall(scripted("(line circle) line (circle)", L"VelmoGROUPMAKE #2 #5 #7\n\n"));
}

TEST(EveryFault, EnlargingPickedGroups) {
    failEveryCall(picked("(line circle) line (circle)", {2, 5, 7}, L"VelmoGROUPMAKE\n"));
}

/// The entities of the user's stand last, among them a block reference with attributes: none of
/// them may be taken for a marker.
TEST(EveryFault, MakingAGroupBeforeABlockWithAttributes) {
    FaultScenario scenario = scripted("", L"VelmoGROUPMAKE #4 #5\n\n");
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

TEST(EveryFault, Ungrouping) {
    failEveryCall(scripted("(line line) circle (circle)", L"VelmoGROUPDELETE #2 #5 #6\n\n"));
}

TEST(EveryFault, UngroupingPickedGroups) {
    failEveryCall(picked("(line line) circle (circle)", {2, 7}, L"VelmoGROUPDELETE\n"));
}

TEST(EveryFault, RemovingMembers) {
    failEveryCall(scripted("(line circle line) (circle)", L"VelmoGROUPREMOVEMEMBER #3 #7\n\n"));
}

TEST(EveryFault, Copying) {
    failEveryCall(picked("(line circle) (line)", {2, 6}, L"COPY 0,0 50,0\n\n"));
}

TEST(EveryFault, Mirroring) {
    failEveryCall(picked("(line circle) line", {2}, L"MIRROR 20,0 20,1 N\n"));
}

TEST(EveryFault, MirroringWithoutSources) {
    FaultScenario scenario = picked("(line circle) line", {2}, L"MIRROR 20,0 20,1 Y\n");
    scenario.moves = true;
    failEveryCall(scenario);
}

TEST(EveryFault, CopyingAndPasting) {
    failEveryCall(picked("(line circle) line", {2}, L"COPYCLIP\nPASTECLIP 50,0\n"));
}

TEST(EveryFault, CopyingWhereAFailedConversionLeavesItsOutputAlone) {
    FaultScenario scenario = scripted("(line) line", L"COPYCLIP\nPASTECLIP 50,0\nCOPY 0,0 9,0\n\n");
    scenario.before = [](Scene& scene) {
        host::switches().failedIdIsNull = false;
        scene.click({2});
    };
    failEveryCall(scenario);
}

TEST(EveryFault, CuttingAndPasting) {
    FaultScenario scenario = picked("(line circle) line", {2}, L"CUTCLIP\nPASTECLIP 50,0\n");
    scenario.moves = true;
    failEveryCall(scenario);
}

TEST(EveryFault, PastingIntoAnotherDrawing) {
    failEveryCall(picked("(line circle) line", {2},
                         L"COPYCLIP\nNEW\nPASTECLIP 50,0\nREGEN\nPASTECLIP 9,9\n"));
}

TEST(EveryFault, RepairingByRegeneration) {
    FaultScenario scenario = scripted("(line circle line) (line) (circle circle)", L"REGEN\n");
    scenario.before = breakGroups;
    failEveryCall(scenario);
}

TEST(EveryFault, Saving) {
    FaultScenario scenario{"(line circle line) (line)", [](Scene& scene) {
                               const std::string file = tests::scratchFolder() + "/saved.dxf";
                               EXPECT_TRUE(scene.session().saveDrawing(file));
                           }};
    scenario.before = breakGroups;
    failEveryCall(scenario);
}

TEST(EveryFault, LoadingADrawingWithGroups) {
    const std::string other = tests::scratchFolder() + "_other.dxf";
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

constexpr const char* kModule = "VelmoGroup.arx";

TEST(EveryFault, LoadingTheModule) {
    FaultScenario scenario{"(line circle) line",
                           [](Scene& scene) { scene.session().loadModule(tests::modulePath()); }};
    scenario.menuGroup = L"Morvanta";
    scenario.before = [](Scene& scene) { scene.session().unloadModule(kModule); };
    scenario.after = [](Scene& scene) {
        // A module that could not unlock itself stays.
        if (!scene.session().unloadModule(kModule)) return;
        EXPECT_TRUE(scene.session().loadModule(tests::modulePath()));
    };
    failEveryCall(scenario);
}

TEST(EveryFault, WithoutMemoryForItsReactorTheModuleGoesOnWithoutIt) {
    Scene scene("line");
    scene.session().sendMessage(kModule, AcRx::kUnloadAppMsg);
    host::setHeapFault(1);
    scene.session().sendMessage(kModule, AcRx::kInitAppMsg);
    EXPECT_EQ(host::editorReactorCount(), 0);
    scene.after(L"VelmoGROUPMAKE #1\n\n");
    EXPECT_EQ(scene.click({2}), "begin(1) line* end | 2 | ");
}

TEST(EveryFault, UnloadingTheModule) {
    FaultScenario scenario{"(line circle) line",
                           [](Scene& scene) { scene.session().unloadModule(kModule); }};
    scenario.after = [](Scene& scene) {
        EXPECT_TRUE(scene.session().loadModule(tests::modulePath()));
    };
    failEveryCall(scenario);
}

TEST(EveryFault, SwitchingGrouping) {
    FaultScenario scenario =
        scripted("(line circle) line", L"VelmoGROUPNOTACTIVE\nVelmoGROUPACTIVE\n");
    scenario.menuGroup = L"Pelltrix";
    failEveryCall(scenario);
}

}  // namespace
