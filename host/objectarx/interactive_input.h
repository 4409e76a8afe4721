// Prompts: picking an entity, asking for a point, and their options.
#pragma once

#include "adesk_types.h"
#include "result_buffer.h"

/// Asks for one entity by a pick; the main entity is given also when a sub-entity was hit. RTERROR
/// for empty space (ERRNO 7) and for Enter (ERRNO 52), RTCAN for Esc (assumed). Documented.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);
/// Asks for a point in the current coordinate system; a null `base` means none. RTNONE for Enter
/// where it is allowed (assumed), RTCAN for Esc. Documented.
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
/// Options of the next input call only: bit 1 refuses Enter, which then prompts again. RTNORM.
/// Documented.
int acedInitGet(int bits, const ACHAR* keywords);
