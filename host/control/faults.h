// The one point where every interface call that returns a status can be made to fail.
#pragma once

#include <functional>
#include <set>
#include <string>

namespace host {

/// Which calls fail. Calls are counted from 1 since the plan was set.
struct FaultPlan {
    long failAt = 0;           ///< number of the first call that fails; 0 = none
    bool andAllLater = false;  ///< every call from failAt on fails
    std::string onlyCalls;     ///< when not empty, only calls of this name count
};

/// Starts counting anew under `plan`.
void setFaultPlan(const FaultPlan& plan);
/// Calls counted since the plan was set.
long faultCallCount();
/// Times a call was made to fail since the plan was set.
long faultsInjected();
/// Names of the calls that were made to fail since the plan was set.
const std::set<std::string, std::less<>>& failedCalls();

/// Asked first thing by every interface call that can answer with a failure. Counts the call; true
/// when it has to fail now, without any effect.
bool callFails(const char* name) noexcept;

/// Makes one allocation of an object on the host's heap throw std::bad_alloc: the `failAt`-th from
/// now on; 0: none.
void setHeapFault(long failAt);
/// Asked by the heap for each object; true when there is no memory for it.
bool heapFails() noexcept;

}  // namespace host
