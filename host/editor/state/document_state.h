// What the editor keeps for each open drawing.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "host/objectarx/geometry.h"
#include "host/objectarx/object_id.h"

class AcDbDatabase;

namespace host {

/// Editor state of one document. Owned by the document.
struct DocumentState {
    AcDbDatabase* database = nullptr;
    std::vector<AcDbObjectId> pickfirst;  ///< pick-first set in its order
    std::vector<AcDbObjectId> previous;   ///< last selection of a command, for "P"
    std::set<Adesk::UInt64> highlighted;  ///< id words highlighted by acedRedraw and not undone
    bool notificationDue = false;         ///< a pickfirstModified waits for the next idle moment
    AcGePoint3d lastPoint;                ///< given last at a prompt for a point
    std::wstring fileName;                ///< path of the drawing, for DWGNAME
};

/// State of the current document, or null when none is open. The application sets it on every
/// switch, together with the working database.
DocumentState* currentDocumentState();
void setCurrentDocumentState(DocumentState* state);

}  // namespace host
