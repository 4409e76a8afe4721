// ERASE and SELECT.
#include <vector>

#include "host/commands/commands.h"
#include "host/commands/entity_selection.h"
#include "host/commands/open_drawing.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/selection/select_objects.h"

namespace host {
namespace {

CommandStatus erase(Store&, const std::vector<ObjectBody*>& entities) {
    eraseEntities(entities);
    return CommandStatus::Done;
}

/// Makes a selection the previous one, for "P" of the next command.
CommandStatus runSelect(Store&) {
    std::vector<AcDbObjectId> selection;
    return promptSelection(selection) == PromptStatus::Cancel ? CommandStatus::Cancelled
                                                              : CommandStatus::Done;
}

}  // namespace

const CommandTable kSelectionCommands = {
    {L"ERASE", ACRX_CMD_USEPICKSET, onSelection<Locked::LeftOut, erase>,
     L"erases the selected entities"},
    {L"SELECT", ACRX_CMD_USEPICKSET, onDrawing<runSelect>,
     L"selects entities for the P of later commands"},
};

}  // namespace host
