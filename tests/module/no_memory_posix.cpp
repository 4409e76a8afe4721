// The module when memory runs out in its own code: nothing is caught but where it can go on.
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
#include "host/editor/notify.h"
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

/// What the accounting found but for exceptions that passed through.
std::string otherFaults() {
    std::string others;
    for (const std::string& fault : host::moduleFaults()) {
        const bool passed = fault.find("an exception left") != fault.npos;
        if (!passed) others += fault + "\n";
    }
    host::clearModuleFaults();
    return others;
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
        EXPECT_EQ(otherFaults(), "");
        EXPECT_TRUE(session.modules().empty());
        EXPECT_TRUE(session.loadModule(tests::modulePath()));
        EXPECT_EQ(host::editorReactorCount(), 1);
        EXPECT_EQ(otherFaults(), "");
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
        EXPECT_EQ(otherFaults(), "");
        scene.run(L"VelmoGROUPACTIVE\n");
        scene.draw("(line)");
        EXPECT_EQ(scene.click({2}),
                  std::string("begin(1) line* end | 1 2 3 | ") + tests::kGathering);
        if (!failed) break;
    }
    EXPECT_GT(n, 1);
}

}  // namespace
#endif
