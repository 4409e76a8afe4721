// The current drawing, and entity names as the editor's calls take them.
#pragma once

#include <string>

#include "host/editor/state/document_state.h"
#include "host/objectarx/adesk_types.h"
#include "host/objectarx/object_id.h"
#include "host/store/object_body.h"

namespace host {

class Store;

/// Store of the current document, or null when none is open.
Store* currentStore();

/// True for the block records of model space and of all layouts.
bool isSpace(const ObjectBody& blockRecord);
/// Block record that holds a main entity, or null.
ObjectBody* ownerOf(const ObjectBody& entity);
/// The entity itself, or for a sub-entity the entity that owns it; null for anything else.
ObjectBody* mainEntityOf(ObjectBody& body);

/// The live main entity of the current drawing with that name, or null. A name that is neither
/// empty nor known is reported as the module's fault in `call`.
ObjectBody* entityOf(const ads_name name, const char* call);

/// Name of the layout that shows a space; "Model" for model space and for what is in no layout.
std::wstring layoutName(const Store& store, Index space);

/// Handle of an object as upper-case hexadecimal.
std::wstring handleText(const ObjectBody& body);

}  // namespace host
