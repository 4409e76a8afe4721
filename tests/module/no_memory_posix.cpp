// The module when memory runs out in its own code: nothing stays open, and the host never hears of
// it.
//
// The sanitizers have their own operator new, which must stay theirs.
#ifndef __SANITIZE_ADDRESS__
#include <dlfcn.h>

#include <cstdlib>
#include <cstring>
#include <new>

#include "common/scene.h"
#include "gtest/gtest.h"
#include "host/control/accounting.h"
#include "host/editor/state/notify.h"
#include "host/objectarx/runtime.h"

namespace {

/// Allocations of the module's code until one fails; 0: none does.
long allocationsLeft = 0;

/// Counts an allocation by the code at `caller`; true when it has to fail.
bool allocationFails(const void* caller) {
    Dl_info where;
    if (allocationsLeft == 0 || ::dladdr(caller, &where) == 0) return false;
    // Nothing may be allocated here.
    return std::strstr(where.dli_fname, "VelmoGroup.arx") != nullptr && --allocationsLeft == 0;
}

}  // namespace

/// Memory that the library's own operator delete gives back.
void* operator new(std::size_t size) {
    void* memory = allocationFails(__builtin_return_address(0)) ? nullptr : std::malloc(size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

namespace {

constexpr const char* kModule = "VelmoGroup.arx";

/// Runs `act` with the n-th allocation of the module's code failing; false when it has fewer.
template <typename Act>
bool failAllocation(long n, Act act) {
    allocationsLeft = n;
    act();
    const bool failed = allocationsLeft == 0;
    allocationsLeft = 0;
    return failed;
}

/// What the accounting found, exceptions that reached the host included.
std::string faults() {
    std::string text;
    for (const std::string& fault : host::moduleFaults())
        text += fault + "\n";
    host::clearModuleFaults();
    return text;
}

TEST(NoMemory, AStartThatFailsIsTakenBackAndTheNextOneSucceeds) {
    long n = 1;
    for (; n < 1000; ++n) {
        SCOPED_TRACE(n);
        host::Session session;
        session.newDrawing();
        EXPECT_TRUE(session.loadModule(tests::modulePath()));
        session.sendMessage(kModule, AcRx::kUnloadAppMsg);
        if (!failAllocation(n, [&] { session.sendMessage(kModule, AcRx::kInitAppMsg); })) break;
        EXPECT_TRUE(session.unloadModule(kModule));
        EXPECT_EQ(faults(), "");
        EXPECT_TRUE(session.loadModule(tests::modulePath()));
        EXPECT_EQ(host::editorReactorCount(), 1);
        EXPECT_EQ(faults(), "");
    }
    EXPECT_GT(n, 1);
}

TEST(NoMemory, ADrawingsRecordIsMadeAtTheNextUse) {
    long n = 1;
    for (; n < 1000; ++n) {
        SCOPED_TRACE(n);
        tests::Scene scene("");
        scene.session().newDrawing();
        const bool failed = failAllocation(n, [&] { scene.run(L"VelmoGROUPNOTACTIVE\n"); });
        EXPECT_EQ(faults(), "");
        scene.run(L"VelmoGROUPACTIVE\n");
        scene.draw("(line)");
        EXPECT_EQ(scene.click({2}),
                  std::string("begin(1) line* end | 1 2 3 | ") + tests::kGathering);
        if (!failed) break;
    }
    EXPECT_GT(n, 1);
}

/// Everything that the module does on a drawing.
constexpr const wchar_t* kLife =
    L"VelmoGROUPMAKE #1 #2\n\nPICK #3\nCOPY 0,0 9,9\n\nREGEN\nVelmoGROUPREMOVEMEMBER #3\n\n"
    L"VelmoGROUPDELETE ALL\n\nVelmoGROUPMAKE\n";

TEST(NoMemory, ACommandIsLeftWithNothingOpenAndNothingLost) {
    long n = 1;
    for (; n < 5000; ++n) {
        SCOPED_TRACE(n);
        tests::Scene scene("line circle line");
        const bool failed = failAllocation(n, [&] { scene.after(kLife); });
        EXPECT_EQ(faults(), "");
        EXPECT_GE(scene.entities().size(), 3u);
        if (!failed || testing::Test::HasFailure()) break;
    }
    EXPECT_GT(n, 100);
    RecordProperty("allocations", static_cast<int>(n));
}

}  // namespace
#endif
