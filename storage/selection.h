// Going through the entities of a selection set.
#pragma once

#include "diagnostics.h"
#include "platform.h"

/// Number of entities in the set; 0, after a check, when it cannot be had. Failures of all three
/// are reported at the place of the caller.
Adesk::Int32 selectionLength(const ads_name selection, const CheckSite& site);

/// Name of the entity at `index`; false, after a check, when it cannot be had.
bool nameAt(const ads_name selection, Adesk::Int32 index, ads_name entity, const CheckSite& site);

/// Id of the entity at `index`; the null id when it cannot be had. A name that cannot be turned
/// into an id is reported with `conversionText`.
AcDbObjectId idAt(const ads_name selection, Adesk::Int32 index, const wchar_t* conversionText,
                  const CheckSite& site);
