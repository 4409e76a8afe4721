// Finds the space that receives new markers and re-cloned members.
#include "current_space.h"

#include "diagnostics.h"
#include "host_guards.h"
#include "host_services.h"

namespace {

const CheckSource DIAG_SOURCE = L"CurrentSpace";
const int kPaperSpaceViewport = 1;

}  // namespace

std::wstring currentSpaceName() {
    AcDbDatabase* database = workingDatabase();
    if (database == nullptr || database->tilemode()) return ACDB_MODEL_SPACE;
    resbuf viewport = {};
    const bool known = DIAG_CHECK(acedGetVar(L"CVPORT", &viewport) == RTNORM);
    return known && viewport.resval.rint == kPaperSpaceViewport ? ACDB_PAPER_SPACE
                                                                : ACDB_MODEL_SPACE;
}

AcDbObjectId currentSpaceId() {
    AcDbObjectId space;
    AcDbDatabase* database = workingDatabase();
    if (database == nullptr) return space;
    Opened<AcDbBlockTable> blocks;
    if (DIAG_CHECK(database->getSymbolTable(blocks.receive(), AcDb::kForRead) == Acad::eOk)) {
        DIAG_CHECK(blocks->getAt(currentSpaceName().c_str(), space) == Acad::eOk);
    }
    return space;
}
