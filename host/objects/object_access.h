// The bridge between stored bodies and the interface's object classes.
#pragma once

#include <string>
#include <vector>

#include "host/objectarx/database_objects.h"
#include "host/store/object_body.h"

class AcRxClass;

namespace host {

class Store;

/// Makes the view class that fits the body's kind. Owned by the opening it is made for.
AcDbObject* makeView(ObjectBody& body);
/// Class of a kind, without making a view.
AcRxClass* classOf(Kind kind);

/// Fresh body on the heap for an object made with `new`: its first tags, in UTF-8, without
/// handle and owner.
ObjectBody* freshBody(Kind kind, std::string text);

/// Makes a new object a resident of `store` under `owner`: slot, handle, tags 5 and 330. Its view
/// stays open for write. eAlreadyInDb when it is resident.
Acad::ErrorStatus makeResident(AcDbObject& object, Store& store, Index owner);

/// eOk when the view may be changed, else eNotOpenForWrite; objects in no database may.
Acad::ErrorStatus checkWritable(const AcDbObject& object);

/// Erases or restores a body with all it owns: sub-entities, sequence end, extension dictionary
/// with its entries. No access checks.
void eraseWithOwned(ObjectBody& body, bool erasing);

}  // namespace host
