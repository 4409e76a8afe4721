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

ClockState clockState;

}  // namespace

std::time_t clockNow() {
    if (!clockState.fixed) return std::time(nullptr);
    return clockState.moment + static_cast<std::time_t>(clockState.slept / 1000);
}

void clockSleep(std::uint32_t milliseconds) {
    if (clockState.fixed) {
        clockState.slept += milliseconds;
    } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
}

void clockFix(std::time_t moment) { clockState = {true, moment, 0}; }

std::uint64_t clockSlept() { return clockState.slept; }

}  // namespace host
