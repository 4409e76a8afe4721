// GROUPEACH, by the module's own command.
#include "drafthost/groups/group_each.h"

#include <algorithm>
#include <deque>

#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/groups/module_command.h"
#include "drafthost/system/process.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/selection/selection_sources.h"
#include "host/editor/state/active_command.h"
#include "host/text/text_codec.h"
#include "host/text/wildcard.h"

namespace {

using host::CommandStatus;

/// False when a prompt was cancelled.
bool ask(EachWish& wish) {
    const auto by = host::promptWord(L"\nOne group for each [Layer/Block/Color] <Layer>: ",
                                     {L"Layer", L"Block", L"Color"}, 0);
    if (!by) return false;
    wish.by = static_cast<LotBy>(*by);
    const host::Answer only = host::prompt(L"\nNames, with wild cards <*>: ");
    if (only.kind == host::Answer::Kind::Text) wish.only = only.text;
    if (only.kind == host::Answer::Kind::Cancel || only.kind == host::Answer::Kind::End)
        return false;
    double least = static_cast<double>(wish.least);
    do
        if (host::promptReal(L"\nLeast number of entities <2>: ", least) ==
            host::PromptStatus::Cancel)
            return false;
    while (!(least >= 1 && least <= 1e9) &&
           host::wrongAnswer(L"The least number of entities is 1 or more"));
    wish.least = static_cast<long>(std::max(least, 1.0));
    return least >= 1;
}

/// "layer WALLS: 12 entities, 3 of them on a locked layer" and what becomes of them.
std::string lineOn(const Lot& lot, const EachWish& wish, bool forms) {
    std::string line = kLotNames[static_cast<int>(wish.by)] + (" " + lot.name) + ": " +
                       host::amount(lot.all(), "entity", "entities");
    const auto leftOut = [&](long count, const char* why) {
        if (count > 0) line += ", " + std::to_string(count) + " " + why;
    };
    leftOut(lot.grouped, "in groups already");
    leftOut(lot.locked, "on a locked layer");
    leftOut(lot.unfit, "that no group keeps (3D polylines and meshes)");
    return line + (forms ? "; one group of " + std::to_string(lot.free.size()) : "; no group");
}

/// True when VelmoGROUPMAKE has moved all of a lot into a group.
bool form(const Lot& lot) {
    host::rememberSelection(lot.free);
    // Behind the selection a point is asked for where no entity has one; nothing is seen of it.
    if (runModuleCommand(L"VelmoGROUPMAKE", {L"P", L"", L"0,0"}) != CommandStatus::Done)
        return false;
    return std::all_of(lot.free.begin(), lot.free.end(),
                       [](AcDbObjectId id) { return id.isErased(); });
}

}  // namespace

void tellOnCommandLine(const std::string& line) { host::printLine(host::fromUtf8(line)); }

CommandStatus groupEach(host::Store& store, const EachWish& wish, const TellLine& tell,
                        long& formed) {
    const inspection::Inspection before = inspectDrawing(*store.database, false);
    Lots lots;
    if (store.currentSpace() != host::kNoIndex)
        addLots(store, store.currentSpace(), wish.by, before, lots);
    formed = 0;
    const std::wstring only = host::foldCase(wish.only);
    for (const auto& [key, lot] : lots) {
        if (interruptRequested()) return CommandStatus::Cancelled;
        if (!host::wildcardMatch(only, host::foldCase(host::fromUtf8(lot.name)))) continue;
        const bool forms = static_cast<long>(lot.free.size()) >= wish.least;
        const std::string line = lineOn(lot, wish, forms);
        if (forms && !form(lot)) {
            host::printProblem(host::fromUtf8(line + " was not made"));
            return CommandStatus::Failed;
        }
        tell(line);
        formed += forms ? 1 : 0;
    }
    tell(host::amount(formed, "group made", "groups made"));
    if (formed == 0 || inspectDrawing(*store.database, false).whole() == before.whole() + formed)
        return CommandStatus::Done;
    host::printProblem(L"Not all of these groups are whole; GROUPLIST tells why.");
    return CommandStatus::Failed;
}

CommandStatus runGroupEach(host::Store& store) {
    EachWish wish;
    long formed = 0;
    return ask(wish) ? groupEach(store, wish, tellOnCommandLine, formed) : CommandStatus::Cancelled;
}
