// What the host's own commands share.
#include "host/commands/open_drawing.h"

#include "host/editor/state/active_command.h"
#include "host/editor/state/document_state.h"
#include "host/objectarx/database.h"

namespace host {

Store* drawingOrComplaint() {
    const DocumentState* document = currentDocumentState();
    if (document != nullptr) return &document->database->store();
    printProblem(L"No drawing is open: use NEW or OPEN first.");
    return nullptr;
}

}  // namespace host
