// ERASE and SELECT.
#include <iterator>
#include <vector>

#include "host/commands/command_support.h"
#include "host/commands/commands.h"
#include "host/database/object_access.h"
#include "host/database/store.h"
#include "host/database/tags.h"
#include "host/editor/command_runner.h"
#include "host/editor/input.h"
#include "host/editor/pickfirst.h"

namespace host {
namespace {

/// Entities on a locked layer cannot be edited.
bool onLockedLayer(const Store& store, const ObjectBody& entity) {
    constexpr long long kLocked = 4;
    const ObjectBody* layer = store.symbol("LAYER", layerName(entity));
    if (layer == nullptr) return false;
    const auto flags = findTag(layer->text(), 70);
    return flags && (parseInteger(flags->value).value_or(0) & kLocked) != 0;
}

CommandStatus runErase() {
    Store* store = drawingOrComplaint();
    if (store == nullptr) return CommandStatus::Failed;
    std::vector<AcDbObjectId> selection;
    if (promptSelection(L"\nSelect objects: ", true, selection) == PromptStatus::Cancel) {
        return CommandStatus::Cancelled;
    }
    long locked = 0;
    for (const AcDbObjectId id : selection) {
        ObjectBody* body = Store::resolve(id);
        if (body == nullptr || body->erased) continue;
        if (onLockedLayer(*store, *body)) {
            ++locked;
        } else {
            eraseWithOwned(*body, true);
        }
    }
    if (locked > 0) say(std::to_wstring(locked) + L" on a locked layer, not erased.");
    dropErasedFromPickfirst();
    return CommandStatus::Done;
}

/// Makes a selection the previous one, for "P" of the next command.
CommandStatus runSelect() {
    if (drawingOrComplaint() == nullptr) return CommandStatus::Failed;
    std::vector<AcDbObjectId> selection;
    return promptSelection(L"\nSelect objects: ", true, selection) == PromptStatus::Cancel
               ? CommandStatus::Cancelled
               : CommandStatus::Done;
}

constexpr Adesk::Int32 kTakesPickfirst = ACRX_CMD_USEPICKSET;

const BuiltinCommand kCommands[] = {
    {L"ERASE", kTakesPickfirst, runErase, L"erases the selected entities"},
    {L"SELECT", kTakesPickfirst, runSelect, L"selects entities for the P of later commands"},
};

}  // namespace

void registerEditCommands() { registerBuiltins(kCommands, std::size(kCommands)); }

}  // namespace host
