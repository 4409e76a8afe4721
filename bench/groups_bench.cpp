// What work on groups costs beside a bare walk over the same entities, or a bare copy of them.
#include "document_data.h"
#include "drawings.h"
#include "group_forming.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "host/objectarx/entity_access.h"
#include "host/objectarx/selection_sets.h"
#include "host/store/journal.h"
#include "host/tags/tag_values.h"
#include "marker_block.h"
#include "membership.h"
#include "ratio.h"

namespace {

using bench::Drawings;
using bench::inTurns;
using bench::mustHold;
using bench::Side;
using Ids = std::vector<AcDbObjectId>;

constexpr double kAtMost = 4;
constexpr double kTenfoldAtMost = 12;
constexpr long kGroupSize = 20;

void openReadClose(const AcDbObjectId& id) {
    AcDbEntity* entity = nullptr;
    mustHold(acdbOpenAcDbEntity(entity, id, AcDb::kForRead) == Acad::eOk, "an entity opens");
    benchmark::DoNotOptimize(host::integerTag(entity->body().tags(), 62));
    entity->close();
}

/// The bare walk: open, read, close, next, up to the end of the space. What it reads is the colour,
/// as a listing would.
void walkFrom(AcDbObjectId id) {
    ads_name name = {};
    mustHold(acdbGetAdsName(name, id) == Acad::eOk, "an entity has a name");
    do {
        openReadClose(id);
    } while (acdbEntNext(name, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk);
}

/// The bare copy: deep clones in the same space, and the sources erased.
void cloneAndErase(const Ids& ids) {
    bench::cloneAll(ids);
    for (const AcDbObjectId& id : ids) {
        AcDbObject* source = nullptr;
        mustHold(acdbOpenObject(source, id, AcDb::kForWrite) == Acad::eOk, "a source opens");
        source->erase();
        source->close();
    }
}

// --- verifyGroup: one group ------------------------------------------------------------------

void openOneGroup(Drawings& drawings, long members) {
    drawings.openLines(members);
    bench::formGroups(members);
}

/// Verifies the group that is all of the drawing, from the member in the middle.
void verify(const Ids& group) {
    AcDbObjectIdArray found;
    mustHold(verifyGroup(found, group[group.size() / 2]), "the group verifies");
}

void verifyGroupBesideWalk(benchmark::State& state) {
    Drawings drawings;
    openOneGroup(drawings, state.range(0));
    const Ids group = bench::entities();
    bench::compare(state, {[&] { verify(group); }}, {[&] { walkFrom(group.front()); }}, kAtMost,
                   state.range(0));
}

void verifyGroupTenfold(benchmark::State& state) {
    Drawings drawings;
    openOneGroup(drawings, state.range(0));
    const Ids small = bench::entities();
    openOneGroup(drawings, 10 * state.range(0));
    const Ids large = bench::entities();
    bench::compare(state, {[&] { verify(large); }, [&] { drawings.activate(1); }},
                   {[&] { verify(small); }, [&] { drawings.activate(0); }}, kTenfoldAtMost,
                   10 * state.range(0));
}

// --- updateAllGroups: a drawing of many groups ------------------------------------------------

void openGroups(Drawings& drawings, long groups) {
    drawings.openLines(groups * kGroupSize);
    bench::formGroups(kGroupSize);
}

void updateAllGroupsBesideWalk(benchmark::State& state) {
    Drawings drawings;
    openGroups(drawings, state.range(0));
    const AcDbObjectId first = bench::entities().front();
    bench::compare(state, {updateAllGroups}, {[&] { walkFrom(first); }}, kAtMost,
                   state.range(0) * kGroupSize);
}

void updateAllGroupsTenfold(benchmark::State& state) {
    Drawings drawings;
    openGroups(drawings, state.range(0));
    openGroups(drawings, 10 * state.range(0));
    bench::compare(state, {updateAllGroups, [&] { drawings.activate(1); }},
                   {updateAllGroups, [&] { drawings.activate(0); }}, kTenfoldAtMost,
                   10 * state.range(0) * kGroupSize);
}

// --- formGroup: all entities of a fresh drawing -----------------------------------------------

/// A drawing of its own for each turn, in a command, as all commands leave something to undo.
class FreshLines {
  public:
    void open(long count) {
        m_drawings.closeAll();
        m_drawings.openLines(count);
        ensureMarkerBlocks();
        ids = bench::entities();
        bench::store().journal().begin(L"BENCH");
    }
    /// The same with a group record on each line: what forming a group clones and erases.
    void openWithRecords(long count) {
        open(count);
        for (const AcDbObjectId& id : ids)
            createXrecord(id);
    }
    /// The same with all lines selected.
    void openSelected(long count) {
        open(count);
        mustHold(acedSSGet(L"X", nullptr, nullptr, nullptr, m_selection) == RTNORM, "lines select");
    }

    void form() { formGroup(m_selection, AcGePoint3d::kOrigin); }

    Ids ids;

  private:
    ads_name m_selection = {};
    Drawings m_drawings;
};

/// Beside the cloning and erasing that is a part of it, records and all.
void formGroupBesideClone(benchmark::State& state) {
    FreshLines lines;
    const long count = state.range(0);
    bench::compare(state, {[&] { lines.form(); }, [&] { lines.openSelected(count); }},
                   {[&] { cloneAndErase(lines.ids); }, [&] { lines.openWithRecords(count); }},
                   kAtMost, count);
}

/// Beside cloning and erasing lines without records: one object each instead of three.
void formGroupBesideCloneOfLines(benchmark::State& state) {
    FreshLines lines;
    const long count = state.range(0);
    bench::compare(state, {[&] { lines.form(); }, [&] { lines.openSelected(count); }},
                   {[&] { cloneAndErase(lines.ids); }, [&] { lines.open(count); }}, kAtMost, count);
}

void formGroupTenfold(benchmark::State& state) {
    FreshLines lines;
    bench::compare(state, {[&] { lines.form(); }, [&] { lines.openSelected(10 * state.range(0)); }},
                   {[&] { lines.form(); }, [&] { lines.openSelected(state.range(0)); }},
                   kTenfoldAtMost, 10 * state.range(0));
}

// --- relinkCopiedGroups: copies of groups -----------------------------------------------------

/// Copies entities and marks where the copies begin.
void copyAll(const Ids& ids) {
    docData().m_idLastBeforeCommand = bench::entities().back();
    bench::cloneAll(ids);
}

void relinkCopiedGroupsBesideWalk(benchmark::State& state) {
    Drawings drawings;
    openGroups(drawings, state.range(0));
    const Ids ids = bench::entities();
    const auto copy = [&] { copyAll(ids); };
    bench::compare(state, {relinkCopiedGroups, copy},
                   {[] { walkFrom(docData().m_idLastBeforeCommand); }, copy}, kAtMost,
                   state.range(0) * kGroupSize);
}

void relinkCopiedGroupsTenfold(benchmark::State& state) {
    Drawings drawings;
    openGroups(drawings, state.range(0));
    const Ids small = bench::entities();
    openGroups(drawings, 10 * state.range(0));
    const Ids large = bench::entities();
    const auto copy = [&](std::size_t drawing, const Ids& ids) {
        drawings.activate(drawing);
        copyAll(ids);
    };
    bench::compare(state, {relinkCopiedGroups, [&] { copy(1, large); }},
                   {relinkCopiedGroups, [&] { copy(0, small); }}, kTenfoldAtMost,
                   10 * state.range(0) * kGroupSize);
}

BENCHMARK(verifyGroupBesideWalk)->RangeMultiplier(10)->Range(10, 100000)->Apply(inTurns);
BENCHMARK(verifyGroupTenfold)->Arg(10000)->Apply(inTurns);
BENCHMARK(updateAllGroupsBesideWalk)->Arg(10000)->Apply(inTurns);
BENCHMARK(updateAllGroupsTenfold)->Arg(1000)->Apply(inTurns);
BENCHMARK(formGroupBesideClone)->Arg(100000)->Apply(inTurns);
BENCHMARK(formGroupBesideCloneOfLines)->Arg(100000)->Apply(inTurns);
BENCHMARK(formGroupTenfold)->Arg(10000)->Apply(inTurns);
BENCHMARK(relinkCopiedGroupsBesideWalk)->Arg(1000)->Apply(inTurns);
BENCHMARK(relinkCopiedGroupsTenfold)->Arg(1000)->Apply(inTurns);

}  // namespace
