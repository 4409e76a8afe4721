// A drawing of the host as an inspection takes it.
#pragma once

#include <string>
#include <vector>

#include "host/objectarx/database.h"
#include "host/store/object_body.h"
#include "inspection/inspection.h"

/// Block records of all spaces of a drawing, model space first.
std::vector<host::Index> spacesOf(const host::Store& store);
/// Name of a space for readers: "Model", or that of its layout. UTF-8.
std::string spaceName(const host::Store& store, host::Index space);
/// Judges all spaces of a drawing; `withExtents` also measures the groups. `frames`, when given,
/// gets a line about members that are measured by their frames alone; none leaves it empty.
inspection::Inspection inspectDrawing(AcDbDatabase& drawing, bool withExtents,
                                      std::string* frames = nullptr);
