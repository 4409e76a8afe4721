// The clock: the machine's, or a fixed moment that only sleeping moves.
#include "host/control/clock.h"

#include <chrono>
#include <thread>

namespace host {
namespace {

struct ClockState {
    bool fixed = false;
    std::time_t moment = 0;
    std::uint64_t slept = 0;
};

ClockState state;

}  // namespace

std::time_t clockNow() {
    if (!state.fixed) return std::time(nullptr);
    return state.moment + static_cast<std::time_t>(state.slept / 1000);
}

void clockSleep(std::uint32_t milliseconds) {
    if (state.fixed) {
        state.slept += milliseconds;
    } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
}

void clockFix(std::time_t moment) { state = {true, moment, 0}; }

std::uint64_t clockSlept() { return state.slept; }

}  // namespace host
