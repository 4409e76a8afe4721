// What the host's own commands share.
#include "host/commands/open_drawing.h"

#include "host/editor/state/active_command.h"
#include "host/editor/state/current_drawing.h"

namespace host {

Store* drawingOrComplaint() {
    if (Store* const store = currentStore()) return store;
    printProblem(L"No drawing is open: use NEW or OPEN first.");
    return nullptr;
}

}  // namespace host
