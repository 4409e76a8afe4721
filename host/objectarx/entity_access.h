// Entity access of the ADS interface: walking drawing order and reading definition data.
#pragma once

#include "adesk_types.h"
#include "result_buffer.h"

/// The entity that follows `entity` in the owner it lives in, sub-entities included and erased
/// ones skipped; null starts with model space. After a reference come its attributes and the
/// sequence end, after an old-style polyline its vertices and the sequence end. An erased start
/// walks on from its old place (chosen); the walk ends with the owner (chosen). RTERROR when
/// nothing is left or the name is bad, `result` then untouched. Documented otherwise.
int acdbEntNext(const ads_name entity, ads_name result);
/// The last main entity of the current space (the space is chosen); RTERROR when it is empty.
/// Documented.
int acdbEntLast(ads_name result);
/// Definition data of an entity as a list: -1 name, 0 type, 330 owner, 5 handle, then the stored
/// tags. Null for an erased or unknown one. The caller owns it (acutRelRb). Documented.
resbuf* acdbEntGet(const ads_name entity);
