// How long it takes to widen a selection to whole groups, and how many host calls it costs.
#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "drawings.h"
#include "host/application/session.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/editor/selection/pickfirst.h"
#include "host/objectarx/database.h"
#include "host/objects/erasing.h"
#include "host/store/store.h"
#include "pick_reactor.h"
#include "ratio.h"

namespace {

/// A drawing of one group, with the module loaded.
class GroupDrawing {
  public:
    explicit GroupDrawing(long members) {
        if (!m_session.newDrawing() || !m_session.modules.load(MODULE_FILE)) {
            throw std::runtime_error("no drawing with the module");
        }
        std::wstring script;
        for (long x = 1; x <= members; ++x) {
            script += L"LINE " + std::to_wstring(x) + L",0 " + std::to_wstring(x) + L",1\n\n";
        }
        m_session.runScript(script + L"VelmoGROUPMAKE ALL\n\n");
        host::clearEffects();
        host::setEffectRecording(false);
    }
    ~GroupDrawing() { host::setEffectRecording(true); }

    /// The members in drawing order: all but the first and the last entity.
    std::vector<AcDbObjectId> members() const {
        const host::Store& store = m_session.database()->store();
        const host::Index space = store.modelSpace();
        std::vector<AcDbObjectId> ids;
        for (host::Index i = store.nextLive(store.at(store.firstLive(space)));
             i != store.lastLive(space); i = store.nextLive(store.at(i))) {
            ids.push_back(store.idOf(i));
        }
        return ids;
    }

    /// Makes of the group what a user leaves who erases its end marker.
    void eraseEndMarker() {
        host::Store& store = m_session.database()->store();
        host::eraseWithOwned(store.at(store.lastLive(store.modelSpace())));
    }

  private:
    host::Session m_session;
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
    const GroupDrawing drawing(state.range(0));
    const std::vector<AcDbObjectId> members = drawing.members();
    measure(state, {members[members.size() / 2]}, members.size() + 2);
}

void windowOverTheGroup(benchmark::State& state) {
    const GroupDrawing drawing(state.range(0));
    const std::vector<AcDbObjectId> members = drawing.members();
    measure(state, {members.rbegin(), members.rend()}, members.size() + 2);
}

/// No walk finds a group here, and the host lists the newest entity first.
void windowOverAGroupWithoutEnd(benchmark::State& state) {
    GroupDrawing drawing(state.range(0));
    const std::vector<AcDbObjectId> members = drawing.members();
    drawing.eraseEndMarker();
    measure(state, {members.rbegin(), members.rend()}, members.size());
}

/// Drawings of groups of 100, and the module's own reactor to their selections.
class ManyGroups {
  public:
    /// Opens a drawing of so many groups; its entities.
    std::vector<AcDbObjectId> open(long groups) {
        m_drawings.openLines(groups * kGroupSize);
        bench::formGroups(kGroupSize);
        return bench::entities();
    }
    /// Goes to the drawing that was opened as the index-th, with nothing picked there.
    void start(std::size_t index) {
        m_drawings.activate(index);
        host::pickNothing();
    }

    static constexpr long kGroupSize = 100;

  private:
    bench::Drawings m_drawings;
    KESTpickGroupEnt m_reactor{true};
};

void pickEach(const std::vector<AcDbObjectId>& all) {
    host::pick(all);
    if (host::pickfirst().size() != all.size()) throw std::runtime_error("not all is picked");
}

/// As Ctrl+A does in a drawing of groups.
void pickAll(benchmark::State& state) {
    ManyGroups groups;
    const std::vector<AcDbObjectId> all = groups.open(state.range(0));
    for (auto step : state) {
        pickEach(all);
        state.PauseTiming();
        groups.start(0);
        state.ResumeTiming();
    }
}

void pickAllTenfold(benchmark::State& state) {
    ManyGroups groups;
    const std::vector<AcDbObjectId> small = groups.open(state.range(0));
    const std::vector<AcDbObjectId> large = groups.open(10 * state.range(0));
    bench::compare(state, {[&] { pickEach(large); }, [&] { groups.start(1); }},
                   {[&] { pickEach(small); }, [&] { groups.start(0); }}, 12,
                   10 * state.range(0) * ManyGroups::kGroupSize);
}

BENCHMARK(pickAll)->RangeMultiplier(10)->Range(10, 100)->Unit(benchmark::kMillisecond);
BENCHMARK(pickAllTenfold)
    ->Arg(10)
    ->Arg(100)
    ->Iterations(9)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(pickOneMember)->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowOverTheGroup)->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowOverAGroupWithoutEnd)
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
