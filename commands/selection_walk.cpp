// Goes through the entities of a selection set.
#include "selection_walk.h"

#include "command_source.h"
#include "diagnostics.h"

Adesk::Int32 selectionLength(const ads_name selection) {
    Adesk::Int32 length = 0;
    return acedSSLength(selection, &length) == RTNORM ? length : 0;
}

bool nameAt(const ads_name selection, Adesk::Int32 index, ads_name entity) {
    const bool named = DIAG_CHECK(acedSSName(selection, index, entity) == RTNORM);
    return named;
}

AcDbObjectId idAt(const ads_name selection, Adesk::Int32 index, const wchar_t* conversionText) {
    AcDbObjectId id;
    ads_name entity = {};
    if (!nameAt(selection, index, entity)) return id;
    DIAG_ASSERT(acdbGetObjectId(id, entity) == Acad::eOk, conversionText);
    return id;
}
