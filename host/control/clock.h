// The host's clock: tests own it and never wait, the program uses the machine's.
#pragma once

#include <cstdint>
#include <ctime>

namespace host {

/// Seconds since 1970, UTC.
std::time_t clockNow();
/// Milliseconds that pass; with a fixed clock the time moves on at once.
void clockSleep(std::uint32_t milliseconds);
/// Fixes the clock at a moment; only sleeping moves it from then on.
void clockFix(std::time_t moment);
/// Milliseconds slept since the clock was fixed.
std::uint64_t clockSlept();

}  // namespace host
