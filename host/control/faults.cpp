// Counts the interface's calls and decides which of them fail.
#include "host/control/faults.h"

namespace host {
namespace {

struct FaultState {
    FaultPlan plan;
    long calls = 0;
    long injected = 0;
    std::set<std::string, std::less<>> failed;
};

FaultState state;
long heapCallsLeft = 0;

}  // namespace

void setFaultPlan(const FaultPlan& plan) {
    state.plan = plan;
    state.calls = 0;
    state.injected = 0;
    state.failed.clear();
}

long faultCallCount() { return state.calls; }

long faultsInjected() { return state.injected; }

const std::set<std::string, std::less<>>& failedCalls() { return state.failed; }

bool callFails(const char* name) noexcept {
    const FaultPlan& plan = state.plan;
    if (!plan.onlyCalls.empty() && plan.onlyCalls != name) return false;
    ++state.calls;
    if (plan.failAt == 0 || state.calls < plan.failAt) return false;
    if (state.calls > plan.failAt && !plan.andAllLater) return false;
    ++state.injected;
    if (state.failed.find(name) == state.failed.end()) state.failed.insert(name);
    return true;
}

void setHeapFault(long failAt) { heapCallsLeft = failAt; }

bool heapFails() noexcept { return heapCallsLeft > 0 && --heapCallsLeft == 0; }

}  // namespace host
