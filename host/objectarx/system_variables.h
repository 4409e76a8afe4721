// System variables.
#pragma once

#include "adesk_types.h"
#include "result_buffer.h"

/// Reads a system variable into the caller's buffer (type and value; a string is allocated for the
/// caller). Names are matched without regard to case. RTERROR for an unknown one. Assumed.
int acedGetVar(const ACHAR* name, resbuf* result);
/// Sets a system variable from the first buffer, whose type must fit. RTERROR for an unknown or
/// read-only one, a wrong type or a value out of range. Assumed.
int acedSetVar(const ACHAR* name, const resbuf* value);
