// Takes turns at two kinds of work and reports the median of their ratios.
#include "ratio.h"

#include <algorithm>
#include <ctime>
#include <vector>

#include "host/control/faults.h"

namespace bench {
namespace {

constexpr double kShortestTurn = 0.02;

double processorSeconds() {
    timespec now = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// One side with what its first turn, which is not timed, told of it.
class Player {
  public:
    explicit Player(const Side& side) : m_side(side) {
        const double seconds = turn();
        m_hostCalls = host::faultCallCount();
        if (!m_side.prepare) m_repeats = static_cast<int>(kShortestTurn / (seconds + 1e-9)) + 1;
    }

    /// Seconds that the work takes once.
    double turn() const {
        if (m_side.prepare) m_side.prepare();
        host::setFaultPlan({});  // host calls are counted from here on
        const double began = processorSeconds();
        for (int i = 0; i < m_repeats; ++i)
            m_side.work();
        return (processorSeconds() - began) / m_repeats;
    }
    long hostCalls() const { return m_hostCalls; }

  private:
    const Side& m_side;
    int m_repeats = 1;
    long m_hostCalls = 0;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

void compare(benchmark::State& state, const Side& work, const Side& beside, double atMost,
             long members) {
    const Player player(work);
    const Player other(beside);
    std::vector<double> ratios;
    for (auto turn : state) {
        const double seconds = player.turn();
        ratios.push_back(seconds / other.turn());
        state.SetIterationTime(seconds);
    }
    const auto things = static_cast<double>(members);
    state.counters["ratio"] = median(ratios);
    state.counters["at_most"] = atMost;
    state.counters["calls"] = static_cast<double>(player.hostCalls()) / things;
    state.counters["calls_beside"] = static_cast<double>(other.hostCalls()) / things;
}

void inTurns(benchmark::internal::Benchmark* row) {
    row->Iterations(9)->UseManualTime()->Unit(benchmark::kMillisecond);
}

}  // namespace bench
