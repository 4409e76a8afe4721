// Command-line output, menus, highlighting and failure messages.
#pragma once

#include "adesk_types.h"
#include "result_buffer.h"

/// Prints formatted text; wide printf conversions ("%s" takes ACHAR*). RTNORM. Documented.
int acutPrintf(const ACHAR* format, ...);
/// Prints the text as it stands. RTNORM. Assumed.
int acedPrompt(const ACHAR* text);
/// Prints a failure of the application, with its name in front. Documented.
void acdbFail(const ACHAR* text);
/// Sends one menu instruction "area=action". RTNORM, also for an item that does not exist (chosen).
/// Documented grammar.
int acedMenuCmd(const ACHAR* text);
/// 1 when a menu group is loaded, else 0; without regard to case. Assumed.
int acedIsMenuGroupLoaded(const ACHAR* name);
/// Shows 1, hides 2, highlights 3 or unhighlights 4 an entity; RTERROR for an unknown or erased
/// one (assumed), RTREJ for another mode (assumed). Null means the whole viewport. Documented.
int acedRedraw(const ads_name entity, int mode);
