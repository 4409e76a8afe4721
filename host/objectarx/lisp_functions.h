// AutoLISP functions that an application defines per document.
#pragma once

#include "adesk_types.h"
#include "result_buffer.h"

/// Defines `name` in the current document's LISP with a code from 0 to 32767; a later definition
/// of the name replaces it. RTNORM, 0 on failure. Documented.
int acedDefun(const ACHAR* name, int code);
/// Removes the definition from the current document's LISP; RTERROR when there is none (assumed).
int acedUndef(const ACHAR* name, int code);
/// Makes the host call `function` directly for that code instead of sending kInvkSubrMsg.
/// Documented effect, form assumed.
int acedRegFunc(int (*function)(), int code);
/// Code of the function being invoked by kInvkSubrMsg. Documented use.
int acedGetFunCode();
/// Arguments of the call, null when there are none; owned by the host. Documented.
resbuf* acedGetArgs();
/// Makes the call print no value. RTNORM. Documented name.
int acedRetVoid();
