// Goes through the entities of a selection set.
#include "selection.h"

Adesk::Int32 selectionLength(const ads_name selection, const CheckSite& site) {
    Adesk::Int32 length = 0;
    return DIAG_CHECK_AT(site, acedSSLength(selection, &length) == RTNORM) ? length : 0;
}

bool nameAt(const ads_name selection, Adesk::Int32 index, ads_name entity, const CheckSite& site) {
    return DIAG_CHECK_AT(site, acedSSName(selection, index, entity) == RTNORM);
}

AcDbObjectId idAt(const ads_name selection, Adesk::Int32 index, const wchar_t* conversionText,
                  const CheckSite& site) {
    AcDbObjectId id;
    ads_name entity = {};
    if (!nameAt(selection, index, entity, site)) return id;
    DIAG_ASSERT_AT(site, acdbGetObjectId(id, entity) == Acad::eOk, conversionText);
    return id;
}
