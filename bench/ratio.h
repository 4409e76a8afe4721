// Times work against simpler work beside it, both in one run.
//
// A ratio says the same on every machine. The two take turns, so that what else the machine does
// meets both, and the median over the turns is reported. Times are processor time.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace bench {

struct Side {
    std::function<void()> work;
    /// Runs before each turn, neither timed nor counted. Without one a turn repeats its work until
    /// the clock can see it.
    std::function<void()> prepare = {};
};

/// Takes one turn of both sides for each iteration of `state` and reports their ratio, its bound,
/// and the host calls of both for each of `members` things. The benchmark's time is that of the
/// work.
void compare(benchmark::State& state, const Side& work, const Side& beside, double atMost,
             long members);

/// As often as the median needs.
void inTurns(benchmark::internal::Benchmark* row);

}  // namespace bench
