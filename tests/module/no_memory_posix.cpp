// The module when memory runs out in its own code: nothing stays open, and the host never hears of
// it.
//
// The sanitizers have their own operator new, which must stay theirs.
#ifndef __SANITIZE_ADDRESS__
#include <dlfcn.h>
#include <link.h>

#include <cstdlib>
#include <cstring>
#include <functional>

#include "common/checks.h"
#include "common/scene.h"
#include "gtest/gtest.h"
#include "host/control/effects.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/notify.h"
#include "host/objectarx/runtime.h"

namespace {

/// Allocations of the module's code until one fails; 0: none does.
long allocationsLeft = 0;

/// Counts an allocation by the code at `caller`; true when it has to fail.
bool allocationFails(const void* caller) {
    dl_find_object where;
    if (allocationsLeft == 0 || ::_dl_find_object(const_cast<void*>(caller), &where) != 0)
        return false;
    // Nothing may be allocated here; dladdr would look through all symbols each time.
    return std::strstr(where.dlfo_link_map->l_name, "VelmoGroup.arx") != nullptr &&
           --allocationsLeft == 0;
}

}  // namespace

/// Memory that the library's own operator delete gives back.
void* operator new(std::size_t size) {
    void* memory = allocationFails(__builtin_return_address(0)) ? nullptr : std::malloc(size);
    if (memory == nullptr) throw "no memory";  // as in MFC, where it is a pointer
    return memory;
}

namespace {

using tests::kModule;

/// Without it most allocations are made by code of the standard library's own.
#ifdef MODULE_OPTIMISED
constexpr bool kInlined = true;
#else
constexpr bool kInlined = false;
#endif

/// Runs `act` in a scene of its own with each allocation of the module's code failing, and `after`
/// behind it; the host hears of none. The module makes at least `least` of them.
void failEveryAllocation(long least, const std::string& words,
                         const std::function<void(tests::Scene&)>& act,
                         const std::function<void(tests::Scene&)>& after,
                         const std::function<void(tests::Scene&)>& before = {}) {
    for (long n = 1; n < 5000; ++n) {
        SCOPED_TRACE(n);
        tests::Scene scene(words);
        if (before) before(scene);
        allocationsLeft = n;
        act(scene);
        const bool failed = allocationsLeft == 0;
        allocationsLeft = 0;
        EXPECT_EQ(tests::takeFaults(), std::vector<std::string>());
        after(scene);
        EXPECT_EQ(tests::takeFaults(), std::vector<std::string>());
        if (failed && !testing::Test::HasFailure()) continue;
        EXPECT_GT(n, kInlined ? least : 0);
        return;
    }
}

TEST(NoMemory, AStartThatFailsIsTakenBackAndTheNextOneSucceeds) {
    failEveryAllocation(
        5, "", [](auto& scene) { scene.session().modules.load(MODULE_FILE); },
        [](auto& scene) {
            // What stood in the way of one step spared the others: the mode goes with its drawing.
            host::loadMenuGroup(L"Pelltrix");
            scene.after(L"VelmoGROUPNOTACTIVE\n");
            scene.session().closeDrawing();
            scene.session().newDrawing();
            EXPECT_TRUE(
                tests::holds(scene.after(L"VelmoGROUPACTIVE\n"), "ON=~, GPelltrix.ID_GRP_ON=~"));
            scene.session().modules.unload(kModule);
            EXPECT_TRUE(scene.session().modules.load(MODULE_FILE));
            EXPECT_EQ(host::editorReactors().count(), 1);
        },
        [](auto& scene) { EXPECT_TRUE(scene.session().modules.unload(kModule)); });
}

TEST(NoMemory, AnUnloadThatFailsGoesToItsEnd) {
    failEveryAllocation(
        1, "",
        [](auto& scene) {
            host::clearEffects();
            scene.session().modules.unload(kModule);
        },
        [](auto& scene) {
            EXPECT_EQ(host::effectText(host::EffectKind::CommandLine),
                      L"Goodbye\nRemoving command group \"VelmoGROUP\"\n");
            EXPECT_TRUE(scene.session().modules.load(MODULE_FILE));
        });
}

TEST(NoMemory, ALispFunctionAnswersAllTheSame) {
    failEveryAllocation(
        2, "",
        [](auto& scene) {
            EXPECT_EQ(scene.session().callLisp(L"(VelmoGroupVersion)"), host::CommandStatus::Done);
        },
        [](auto&) {});
}

/// Everything that the module does on a drawing.
constexpr const wchar_t* kLife =
    L"VelmoGROUPMAKE #1 #2\n\nPICK #3\nCOPY 0,0 9,9\n\nREGEN\nVelmoGROUPREMOVEMEMBER #3\n\n"
    L"VelmoGROUPDELETE ALL\n\nVelmoGROUPMAKE\n";

TEST(NoMemory, ACommandIsLeftWithNothingOpenAndNothingLost) {
    failEveryAllocation(
        50, "",
        [](auto& scene) {
            scene.session().newDrawing();  // its record is made at the first use that succeeds
            scene.draw("line circle line");
            scene.after(kLife);
        },
        [](auto& scene) { EXPECT_GE(scene.entities().size(), 3u); });
}

}  // namespace
#endif
