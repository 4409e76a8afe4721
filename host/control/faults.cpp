// Counts the interface's calls and decides which of them fail.
#include "host/control/faults.h"

namespace host {
namespace {

struct FaultState {
    FaultPlan plan;
    long calls = 0;
    long injected = 0;
};

FaultState state;

}  // namespace

void setFaultPlan(const FaultPlan& plan) {
    state.plan = plan;
    state.calls = 0;
    state.injected = 0;
}

long faultCallCount() { return state.calls; }

long faultsInjected() { return state.injected; }

bool callFails(const char* name) noexcept {
    const FaultPlan& plan = state.plan;
    if (!plan.onlyCalls.empty() && plan.onlyCalls != name) return false;
    ++state.calls;
    if (plan.failAt == 0 || state.calls < plan.failAt) return false;
    if (state.calls > plan.failAt && !plan.andAllLater) return false;
    ++state.injected;
    return true;
}

}  // namespace host
