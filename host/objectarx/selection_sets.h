// Selection sets, the pick-first set included.
#pragma once

#include "adesk_types.h"
#include "result_buffer.h"

/// Makes a selection set. Modes: null (user selection; the pick-first set first when nothing else
/// is given), "I" implied, "X" whole database with filter, "A" all, "L" last, "P" previous, "W" and
/// "C" with two points; null with `pt1` picks at that point. A leading "_" is accepted. RTNORM only
/// when an entity was found; RTERROR for nothing or Enter, RTCAN for Esc, RTREJ for rejected
/// arguments (values assumed). At most 128 sets may be open; one more gives RTERROR. The caller
/// frees the set (acedSSFree). Documented otherwise.
int acedSSGet(const ACHAR* mode, const void* pt1, const void* pt2, const resbuf* filter,
              ads_name set);
/// Adds an entity: without `set` to a new set, which the caller frees; `set` and `result` may be
/// the same variable. An entity that is in already is no error. RTERROR for a bad or erased entity
/// (erased: chosen) or a bad set. With both null a new empty set. Documented.
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
/// Removes an entity; the gap closes. RTERROR when it is no member. Assumed.
int acedSSDel(const ads_name entity, const ads_name set);
/// Number of members; RTERROR for a name that is no open set, `length` then untouched.
int acedSSLength(const ads_name set, Adesk::Int32* length);
/// Member at `index` from 0; RTERROR when out of range. Erased members are still given. Assumed.
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
/// Frees a set; RTERROR and no harm for a name that is no open set. Assumed.
int acedSSFree(const ads_name set);
/// The pick-first set of the current document in `*picks` as one RTPICKS buffer; `*grips` is always
/// null. Set and buffer belong to the caller. Without a pick-first set RTERROR, or RTNORM with a
/// null buffer (switchable). Documented, ownership assumed.
int acedSSGetFirst(resbuf** grips, resbuf** picks);
/// Makes a copy of `set` the pick-first set; null or the empty name clears it. `unused` is ignored.
/// Notifies pickfirstModified. Documented.
int acedSSSetFirst(const ads_name set, const ads_name unused);
