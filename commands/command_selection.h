// What a command works on: the pick-first set, or what the user selects when asked.
#pragma once

#include "host_guards.h"

/// Where a selection came from.
enum Selected { kNothingSelected, kPickfirst, kSelectedAtPrompt };

/// Gives the pick-first set as it stands or, after `prompt`, what the user selects. Without either
/// the user is told that nothing was selected.
Selected selectForCommand(const wchar_t* prompt, OwnedSelection& selection);

/// How reports name the conversion of a selected entity's name.
const wchar_t* const kSelectedConversion = L"acdbGetObjectId (objId, ent1) == Acad::eOk";
