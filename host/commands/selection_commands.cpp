// ERASE and SELECT.
#include <iterator>
#include <vector>

#include "host/commands/command_support.h"
#include "host/commands/commands.h"
#include "host/commands/entity_selection.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/selection/select_objects.h"

namespace host {
namespace {

CommandStatus runErase() {
    return editSelection(Locked::LeftOut, [](Store&, const std::vector<ObjectBody*>& entities) {
        eraseEntities(entities);
        return CommandStatus::Done;
    });
}

/// Makes a selection the previous one, for "P" of the next command.
CommandStatus runSelect() {
    if (drawingOrComplaint() == nullptr) return CommandStatus::Failed;
    std::vector<AcDbObjectId> selection;
    return promptSelection(L"\nSelect objects: ", true, selection) == PromptStatus::Cancel
               ? CommandStatus::Cancelled
               : CommandStatus::Done;
}

const BuiltinCommand kSelectionCommands[] = {
    {L"ERASE", ACRX_CMD_USEPICKSET, runErase, L"erases the selected entities"},
    {L"SELECT", ACRX_CMD_USEPICKSET, runSelect, L"selects entities for the P of later commands"},
};

}  // namespace

void registerSelectionCommands() {
    registerBuiltins(kSelectionCommands, std::size(kSelectionCommands));
}

}  // namespace host
