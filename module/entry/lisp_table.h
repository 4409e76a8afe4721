// The AutoLISP functions of the module.
#pragma once

/// Defines every function in the current drawing's LISP. RTNORM, or RTERROR when a definition
/// failed; the rest is not tried then.
int defineLispFunctions();
/// Takes the version function out of the current drawing's LISP.
void undefineLispFunction();
/// Calls the function whose code the host names; a code without a function does nothing.
void dispatchLispFunction();
/// VelmoGroupVersion: prints the source name with the moment of the build. RSRSLT.
int lispVersionFunction();
