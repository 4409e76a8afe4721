// GROUPREPAIR, by REGEN and the module's own command.
#include "drafthost/groups/group_repair.h"

#include <map>
#include <set>
#include <utility>

#include "drafthost/groups/drawing_inspection.h"
#include "drafthost/groups/module_command.h"
#include "host/store/store.h"
#include "host/text/numbers.h"
#include "inspection/report.h"

namespace {

using host::CommandStatus;
using host::Store;
using Strays = std::vector<inspection::Stray>;

std::vector<AcDbObjectId> entitiesOf(const Store& store, const Strays& strays) {
    std::vector<AcDbObjectId> ids;
    for (const inspection::Stray& stray : strays) {
        const host::ObjectBody* body = store.byHandle(stray.handle);
        if (body != nullptr) ids.push_back(store.idOf(*body));
    }
    return ids;
}

/// Tells what of `before` is gone; false when that is nothing.
bool tellGone(const Strays& before, const Strays& after, const TellLine& tell) {
    std::set<std::string> left;
    for (const inspection::Stray& stray : after)
        left.insert(inspection::nameOf(stray));
    bool any = false;
    for (const inspection::Stray& stray : before) {
        if (left.count(inspection::nameOf(stray)) != 0) continue;
        any = true;
        tell("took away " + inspection::nameOf(stray));
    }
    return any;
}

void tellMended(const inspection::Inspection& before, const inspection::Inspection& after,
                const TellLine& tell) {
    using inspection::State;
    std::map<std::string, std::string> broken;  // why, by the begin marker
    for (const inspection::Group& group : before.groups)
        if (group.state == State::Broken) broken.emplace(group.begin, group.reason);
    for (const inspection::Group& group : after.groups) {
        const auto former = broken.find(group.begin);
        if (group.state == State::Whole && former != broken.end())
            tell("mended group " + group.begin + " in " + group.space + ": " + former->second);
    }
}

}  // namespace

CommandStatus repairGroups(Store& store, const TellLine& tell) {
    const inspection::Inspection atFirst = inspectDrawing(*store.database, false);
    CommandStatus status = runModuleCommand(L"REGEN", {});
    inspection::Inspection found = inspectDrawing(*store.database, false);
    tellMended(atFirst, found, tell);
    tellGone(atFirst.strays, found.strays, tell);
    // What is taken away can leave another marker or record alone, so it goes on while it helps.
    for (bool helps = true; helps && status == CommandStatus::Done && !found.strays.empty();) {
        status = runModuleCommand(L"VelmoGROUPDELETE", {}, entitiesOf(store, found.strays));
        const Strays before = std::exchange(found, inspectDrawing(*store.database, false)).strays;
        helps = tellGone(before, found.strays, tell);
    }
    return status;
}

CommandStatus runGroupRepair(Store& store) {
    const CommandStatus status = repairGroups(store, tellOnCommandLine);
    std::string left = inspection::listText("left: ", inspectDrawing(*store.database, false),
                                            inspection::Listed::Faults);
    if (left.empty()) left = "All groups are whole.\n";
    left.pop_back();
    tellOnCommandLine(left);
    return status;
}
