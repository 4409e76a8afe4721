// GROUPEACH: one group for each layer, block or color of the current space.
#pragma once

#include <functional>
#include <string>

#include "drafthost/groups/entity_lots.h"
#include "host/editor/run/command_runner.h"

/// For what there is to be a group.
struct EachWish {
    LotBy by = LotBy::Layer;
    std::wstring only = L"*";  ///< names, by the wild cards of selection filters, in any case
    long least = 2;            ///< entities, below which there is none
};
/// Receives one line, UTF-8, without line end.
using TellLine = std::function<void(const std::string& line)>;
void tellOnCommandLine(const std::string& line);

/// Runs VelmoGROUPMAKE for each name in turn, so each group is one step for undo, and tells a line
/// for each. Left alone is what stands in a group already, on a locked layer or on that of markers,
/// and 3D polylines and meshes, whose groups do not last. Layers that are off or frozen count like
/// others. `formed` gets the number of groups made. Failed, with the problem printed, when one of
/// them does not come about; Cancelled after Ctrl+C.
host::CommandStatus groupEach(host::Store& store, const EachWish& wish, const TellLine& tell,
                              long& formed);
/// The command: asks by what to group, for a pattern of names and for the least number.
host::CommandStatus runGroupEach(host::Store& store);
