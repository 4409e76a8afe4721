// The group record: the mark that an entity belongs to a group.
//
// An xrecord in the entity's own extension dictionary, under prefix + "_GROUP", with one group of
// code 1: prefix + " Group entity". It does not say which group; that follows from the entity's
// place in drawing order.
#pragma once

#include "platform.h"

/// Gives the entity its group record. An entity that has an extension dictionary already, whoever
/// made it, receives none: false, as when the entity cannot be opened for write, which prints a
/// line.
bool createXrecord(const AcDbObjectId& entityId);

/// Puts back the record that deleteXrecord has taken away, also into a dictionary that other
/// entries have kept. False, with a line, when the entity cannot be opened for write.
bool restoreXrecord(const AcDbObjectId& entityId);

/// Removes the group record and, when nothing else is in it, the extension dictionary. False only
/// when the entity could not be opened; each step that fails prints a line.
bool deleteXrecord(const AcDbObjectId& entityId);

/// True when the entity holds a group record with exactly the expected text.
bool isGroupedEntity(const AcDbObjectId& entityId);
