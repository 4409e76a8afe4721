// Umbrella of the ObjectARX interface as the module sees it: one include for every call that it
// makes.
//
// How sure each behaviour is stands at its declaration:
//   Documented - the interface's public documentation states it.
//   Assumed    - general knowledge of the platform, not confirmed by a page.
//   Chosen     - documentation is silent; this host picked a behaviour (often a switch, see
//                host/control/switches.h).
#pragma once

#include "adesk_types.h"
#include "array.h"
#include "command_line.h"
#include "command_stack.h"
#include "database.h"
#include "database_objects.h"
#include "documents.h"
#include "editor.h"
#include "entities.h"
#include "entity_access.h"
#include "error_status.h"
#include "geometry.h"
#include "interactive_input.h"
#include "lisp_functions.h"
#include "object_id.h"
#include "result_buffer.h"
#include "runtime.h"
#include "selection_sets.h"
#include "symbol_tables.h"
#include "system_variables.h"
