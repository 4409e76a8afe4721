// What picking, repairing and dissolving cost where groups are broken: ten times the groups beside
// a tenth of them, three members each.
#include "document_data.h"
#include "drawings.h"
#include "group_forming.h"
#include "group_record.h"
#include "GroupCommands.h"
#include "handle_text.h"
#include "host/editor/selection/pickfirst.h"
#include "marker.h"
#include "marker_block.h"
#include "pick_reactor.h"
#include "ratio.h"

namespace {

using Ids = std::vector<AcDbObjectId>;

constexpr long kMembers = 3;
constexpr double kTenfoldAtMost = 12;
constexpr const wchar_t* kBegin = L"VELMO_GB";
constexpr const wchar_t* kEnd = L"VELMO_GE";

enum Kind { kWhole, kCut, kOverlapping, kCrossed };

AcDbObjectId markerNamed(const wchar_t* block, const std::wstring& first) {
    insertMarker(block, AcGePoint3d::kOrigin, first, L"3");
    ads_name name = {};
    AcDbObjectId id;
    acdbEntLast(name);
    acdbGetObjectId(id, name);
    return id;
}

/// Three clones of lines that carry records, at the end of the drawing.
void appendMembers(const Ids& lines, long group) {
    const auto first = lines.begin() + kMembers * group;
    bench::cloneAll({first, first + kMembers});
}

/// A drawing of groups of that kind. Cut: without end markers. Overlapping: all begin markers, all
/// members, all end markers. Crossed: of two groups each end marker names the other begin marker.
void openGroups(bench::Drawings& drawings, Kind kind, long groups) {
    drawings.openLines(groups * kMembers);
    ensureMarkerBlocks();
    const Ids lines = bench::entities();
    for (const AcDbObjectId& line : lines)
        createXrecord(line);
    Ids begins;
    for (long i = 0; i < groups; ++i) {
        begins.push_back(markerNamed(kBegin, L""));
        if (kind != kOverlapping) appendMembers(lines, i);
        if (kind == kWhole || (kind == kCrossed && i % 2 == 0)) {
            markerNamed(kEnd, handleText(begins.back()));
        } else if (kind == kCrossed) {
            markerNamed(kEnd, handleText(begins[begins.size() - 2]));
        }
    }
    for (long i = 0; kind == kOverlapping && i < groups; ++i)
        appendMembers(lines, i);
    for (long i = 0; kind == kOverlapping && i < groups; ++i)
        markerNamed(kEnd, handleText(begins[static_cast<std::size_t>(i)]));
    for (const AcDbObjectId& line : lines)
        eraseObject(line);
}

void growsTenfold(benchmark::State& state, const std::function<void()>& work) {
    const auto kind = static_cast<Kind>(state.range(0));
    const long groups = state.range(1);
    bench::Drawings drawings;
    KESTpickGroupEnt reactor(true);
    const auto fresh = [&](long count) {
        drawings.closeAll();
        openGroups(drawings, kind, count);
        docData() = CDocData();  // an earlier drawing may have stood at the same address
    };
    bench::compare(state, {work, [&] { fresh(10 * groups); }}, {work, [&] { fresh(groups); }},
                   kTenfoldAtMost, 10 * groups * kMembers);
}

void pickBrokenTenfold(benchmark::State& state) {
    growsTenfold(state, [] { host::pick(bench::entities()); });
}

void repairBrokenTenfold(benchmark::State& state) { growsTenfold(state, updateAllGroups); }

void ofEachKind(benchmark::internal::Benchmark* row) {
    for (const Kind kind : {kWhole, kCut, kOverlapping, kCrossed})
        row->Args({kind, 1000});
}

BENCHMARK(pickBrokenTenfold)->Apply(ofEachKind)->Apply(bench::inTurns);
BENCHMARK(repairBrokenTenfold)->Apply(ofEachKind)->Apply(bench::inTurns);

}  // namespace
