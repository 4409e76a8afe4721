// The support library's identity, start and end.
#pragma once

#include "platform.h"

/// Whether the initialisation ran.
extern bool G_bLibraryInitialised;
/// Name of the application; empty while the library is not initialised.
extern CString G_sApplicationName;
/// The module's own handle, from which its file is found; null while the library is not
/// initialised.
extern HMODULE G_hCurrentModule;

/// Keeps the identity and sets the diagnostics from the per-user switches "DebugStartup" and
/// "AssertStartup". `createCrashDumper` has no effect: this library has no crash dumper.
/// `finaliseLog`: the shut-down renames the working log to the final log.
void initialiseLibrary(const CString& sApplicationName, HMODULE hModule, bool createCrashDumper,
                       bool finaliseLog);
/// Ends the logging to file, finalises the log if that was asked for, and forgets the identity.
void shutDownLibrary();
