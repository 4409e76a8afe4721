// Openings: which objects are open how, the views that stand for them, and what becomes of closed
// ones.
//
// Every opening is in the ledger until it is closed. A closed view lives on for a while, so that a
// second close() or any other use is found and named as the module's fault.
#pragma once

#include <string>

#include "host/objectarx/database_objects.h"
#include "host/objects/class_table.h"
#include "host/store/object_body.h"

namespace host {

/// Re-points a view; nothing else may touch that link.
struct ViewAccess {
    static ObjectBody*& bodyOf(AcDbObject& view) { return view.m_body; }
    static ObjectBody* bodyOf(const AcDbObject& view) { return view.m_body; }
};

/// Whether an object could be opened now; the statuses of acdbOpenObject.
Acad::ErrorStatus mayOpen(const ObjectBody& body, AcDb::OpenMode mode, bool openErased);

/// Opens an object: acdbOpenObject without its fault point, for the host's own calls. `object` is
/// null on failure.
Acad::ErrorStatus openBody(AcDbObject*& object, ObjectBody& body, AcDb::OpenMode mode);

/// The same as the class that is wanted; eNotThatKindOfClass for an object of another.
template <typename T>
Acad::ErrorStatus openAs(T*& object, ObjectBody& body, AcDb::OpenMode mode) {
    object = nullptr;
    if (!classOf(body.kind)->isDerivedFrom(T::desc())) return Acad::eNotThatKindOfClass;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = openBody(opened, body, mode);
    if (status == Acad::eOk) object = static_cast<T*>(opened);
    return status;
}

/// Fresh body on the heap for an object made with `new`: its first tags, in UTF-8, without
/// handle and owner.
ObjectBody* freshBody(Kind kind, const std::string& text);
/// Makes a new object a resident of `store` under `owner`: slot, handle, tags 5 and 330. Its view
/// stays open for write. eAlreadyInDb when it is resident.
Acad::ErrorStatus makeResident(AcDbObject& object, Store& store, Index owner);

/// The body that an id names. Null for the null id and, after a report that names the call, for a
/// stale one.
ObjectBody* bodyOfId(AcDbObjectId id, const char* call);

/// For messages: "LINE 2A", or "LINE" before the object has a handle.
std::string describe(const ObjectBody& body);

/// Ends every opening in a store that is about to go; each is reported as the module's fault.
void abandonOpenings(Store& store);

}  // namespace host
