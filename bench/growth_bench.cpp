// What once grew with the square of a drawing's size: the check, and restoring in drawing order.
#include <fstream>

#include "drawings.h"
#include "host/dxf/check/drawing_check.h"
#include "host/dxf/load/load_drawing.h"
#include "host/objectarx/database.h"
#include "host/store/store.h"
#include "host/tags/tags.h"
#include "ratio.h"

namespace {

constexpr double kCheckAtMost = 10;
constexpr double kTenfoldAtMost = 15;
constexpr int kObjects = 30000;

/// DXF text from groups "5=2A" parted by "|"; "#" is a handle that is free.
std::string dxf(const std::string& groups, int number = 0) {
    std::string text;
    for (const char c : groups + "|") {
        if (c == '#')
            text += host::formatHandle(static_cast<std::uint64_t>(0x1000 + number));
        else
            text += c == '|' || c == '=' ? '\n' : c;
    }
    return text;
}

std::string many(const std::string& form) {
    std::string text;
    for (int number = 0; number < kObjects; ++number)
        text += dxf(form, number);
    return text;
}

/// 0: the root dictionary, supplied, is the last object. 1: an owner with many groups, for each of
/// many dictionaries. 2: a root dictionary with many entries and no layout, for each of many
/// spaces.
std::string largeDrawing(long kind) {
    const std::string begin =
        dxf("0=SECTION|2=HEADER|9=$ACADVER|1=AC1027|9=$HANDSEED|5=FFFFF|0=ENDSEC");
    const std::string objects = dxf("0=SECTION|2=OBJECTS");
    const std::string root = dxf("0=DICTIONARY|5=40|330=0|100=AcDbDictionary");
    const std::string end = dxf("0=ENDSEC|0=EOF");
    if (kind == 0) return begin + objects + many("0=XRECORD|5=#|330=1|100=AcDbXrecord") + end;
    if (kind == 1)
        return begin + objects + root + many("3=#|360=#") +
               many("0=DICTIONARY|5=#|330=40|100=AcDbDictionary") + end;
    return begin + dxf("0=SECTION|2=TABLES|0=TABLE|2=BLOCK_RECORD|5=5|330=0|100=AcDbSymbolTable") +
           many(
               "0=BLOCK_RECORD|5=#|330=5|100=AcDbSymbolTableRecord|100=AcDbBlockTableRecord|"
               "2=*Paper_Space#") +
           dxf("0=ENDTAB|0=ENDSEC") + objects + root + many("3=#|350=40") + end;
}

void checkBesideLoad(benchmark::State& state) {
    const std::string path = SCRATCH_FOLDER "/large.dxf";
    std::ofstream(path, std::ios::binary) << largeDrawing(state.range(0));
    const auto load = [&] {
        host::DxfError error;
        auto store = host::loadDrawing(path, error);
        bench::mustHold(store != nullptr, error.message());
        return store;
    };
    const auto store = load();
    bench::compare(state, {[&] { benchmark::DoNotOptimize(host::checkDrawing(*store)); }},
                   {[&] { load(); }}, kCheckAtMost, kObjects);
}

/// Erases all entities of a space but the first and the last, and brings them back from the end,
/// where nothing that lives is near.
class Restoring {
  public:
    explicit Restoring(host::Index count) : m_count(count) {
        host::Store& store = m_database.store();
        for (host::Index i = 0; i < count; ++i)
            store.appendChild(store.modelSpace(),
                              store.duplicate(host::ObjectBody(), store.modelSpace()));
    }
    void operator()() {
        host::Store& store = m_database.store();
        const host::Index first = store.firstLive(store.modelSpace());
        for (host::Index at = first + 1; at + 1 < first + m_count; ++at)
            store.setErased(store.at(at), true);
        for (host::Index at = first + m_count - 2; at > first; --at)
            store.setErased(store.at(at), false);
    }

  private:
    AcDbDatabase m_database{host::newDrawing()};
    host::Index m_count;
};

void restoreTenfold(benchmark::State& state) {
    const auto count = static_cast<host::Index>(state.range(0));
    Restoring small(count), large(10 * count);
    bench::compare(state, {[&] { large(); }}, {[&] { small(); }}, kTenfoldAtMost, 10 * count);
}

BENCHMARK(checkBesideLoad)->Arg(0)->Arg(1)->Arg(2)->Apply(bench::inTurns);
BENCHMARK(restoreTenfold)->Arg(20000)->Apply(bench::inTurns);

}  // namespace
