// How long it takes to widen a selection to whole groups, and how many host calls it costs.
#include <benchmark/benchmark.h>

#include <vector>

#include "drawings.h"
#include "host/control/faults.h"
#include "host/editor/selection/pickfirst.h"
#include "host/objects/erasing.h"
#include "host/store/store.h"
#include "pick_reactor.h"
#include "ratio.h"

namespace {

/// Drawings of groups, and the module's own reactor to their selections.
class GroupDrawings {
  public:
    /// Opens a drawing of so many groups; its entities.
    std::vector<AcDbObjectId> open(long groups, long members) {
        m_drawings.openLines(groups * members);
        bench::formGroups(members);
        return bench::entities();
    }
    /// Goes to the drawing that was opened as the index-th, with nothing picked there.
    void start(std::size_t index) {
        m_drawings.activate(index);
        host::pickNothing();
    }

  private:
    bench::Drawings m_drawings;
    KESTpickGroupEnt m_reactor{true};
};

/// Times one gesture on an empty pick-first set.
void measure(benchmark::State& state, const std::vector<AcDbObjectId>& picks, std::size_t widened) {
    for (auto step : state) {
        host::setFaultPlan({});
        host::pick(picks);
        state.PauseTiming();
        state.counters["host_calls"] = static_cast<double>(host::faultCallCount());
        if (host::pickfirst().size() != widened) state.SkipWithError("not the whole group");
        host::pickNothing();
        state.ResumeTiming();
    }
}

void pickOneMember(benchmark::State& state) {
    GroupDrawings drawings;
    const std::vector<AcDbObjectId> group = drawings.open(1, state.range(0));
    measure(state, {group[group.size() / 2]}, group.size());
}

/// Over the members, of which the host lists the newest first.
void windowOverTheGroup(benchmark::State& state) {
    GroupDrawings drawings;
    const std::vector<AcDbObjectId> group = drawings.open(1, state.range(0));
    measure(state, {group.rbegin() + 1, group.rend() - 1}, group.size());
}

/// The same without an end marker, as a user leaves it who erases that: no walk finds a group.
void windowOverAGroupWithoutEnd(benchmark::State& state) {
    GroupDrawings drawings;
    const std::vector<AcDbObjectId> group = drawings.open(1, state.range(0));
    host::eraseWithOwned(*host::Store::resolve(group.back()));
    measure(state, {group.rbegin() + 1, group.rend() - 1}, group.size() - 2);
}

constexpr long kGroupSize = 100;

void pickEach(const std::vector<AcDbObjectId>& all) {
    host::pick(all);
    bench::mustHold(host::pickfirst().size() == all.size(), "all is picked");
}

/// As Ctrl+A does in a drawing of groups.
void pickAll(benchmark::State& state) {
    GroupDrawings groups;
    const std::vector<AcDbObjectId> all = groups.open(state.range(0), kGroupSize);
    for (auto step : state) {
        pickEach(all);
        state.PauseTiming();
        groups.start(0);
        state.ResumeTiming();
    }
}

void pickAllTenfold(benchmark::State& state) {
    GroupDrawings groups;
    const std::vector<AcDbObjectId> small = groups.open(state.range(0), kGroupSize);
    const std::vector<AcDbObjectId> large = groups.open(10 * state.range(0), kGroupSize);
    bench::compare(state, {[&] { pickEach(large); }, [&] { groups.start(1); }},
                   {[&] { pickEach(small); }, [&] { groups.start(0); }}, 12,
                   10 * state.range(0) * kGroupSize);
}

BENCHMARK(pickAll)->RangeMultiplier(10)->Range(10, 100)->Unit(benchmark::kMillisecond);
BENCHMARK(pickAllTenfold)->Arg(10)->Arg(100)->Apply(bench::inTurns);
BENCHMARK(pickOneMember)->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowOverTheGroup)->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowOverAGroupWithoutEnd)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
