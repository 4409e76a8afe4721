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

FaultState faultState;
long heapCallsLeft = 0;

}  // namespace

void setFaultPlan(const FaultPlan& plan) {
    faultState.plan = plan;
    faultState.calls = 0;
    faultState.injected = 0;
    faultState.failed.clear();
}

long faultCallCount() { return faultState.calls; }

long faultsInjected() { return faultState.injected; }

const std::set<std::string, std::less<>>& failedCalls() { return faultState.failed; }

bool callFails(const char* name) noexcept {
    const FaultPlan& plan = faultState.plan;
    if (!plan.onlyCalls.empty() && plan.onlyCalls != name) return false;
    ++faultState.calls;
    if (plan.failAt == 0 || faultState.calls < plan.failAt) return false;
    if (faultState.calls > plan.failAt && !plan.andAllLater) return false;
    ++faultState.injected;
    if (faultState.failed.find(name) == faultState.failed.end()) faultState.failed.insert(name);
    return true;
}

void setHeapFault(long failAt) { heapCallsLeft = failAt; }

bool heapFails() noexcept { return heapCallsLeft > 0 && --heapCallsLeft == 0; }

}  // namespace host
