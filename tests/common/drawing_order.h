// A drawing as one line of text, for comparing whole states at once.
#pragma once

#include <string>

#include "host/store/store.h"

namespace tests {

/// The main entities of a space in drawing order, for example "circle begin(2) line* line* end":
/// type names in lower case, "*" behind those with a group record, markers by their role. A marker
/// whose attribute does not hold its partner's handle gets a "?", as in "begin(2)?".
std::string drawingOrder(const host::Store& store, host::Index space);

/// X of each block reference of model space and, in brackets, of its attributes: "1.0(1.0 1.0)
/// 1.0(1.0)" for a group whose first member stands at 1.
std::string markerPlaces(const host::Store& store);

/// The `occurrence`-th live main entity (from 0) of a type in a space, model space when none is
/// given; without one the test fails.
host::ObjectBody& entityOf(const host::Store& store, const std::string& type, int occurrence = 0,
                           host::Index space = host::kNoIndex);

/// Handle of an object, "2A", and what names it to a prompt for entities: "(handent \"2A\")".
std::wstring handleOf(AcDbObjectId id);
std::wstring handent(AcDbObjectId id);

/// Tags of an entity without what a clone has of its own (handles, owner, dictionary, reactors):
/// "0=LINE|8=0|".
std::string contentOf(const host::ObjectBody& entity);

}  // namespace tests
