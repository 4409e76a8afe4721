// The setters of the entity classes, and what they look up: sub-entities, names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/content/fields.h"
#include "host/objectarx/entities.h"
#include "host/objects/opening.h"
#include "host/store/store.h"

namespace host {

/// Asked first by every setter, with its own name: eOk when the change may be made.
Acad::ErrorStatus startChange(const AcDbObject& object, const char* call);
/// Opens the live sequence end of a reference or polyline; eNullObjectId when it has none.
Acad::ErrorStatus openEnd(const AcDbEntity& parent, AcDbSequenceEnd*& end, AcDb::OpenMode mode);

/// Live sub-entities of an entity in order, the sequence end last.
std::vector<ObjectBody*> subEntitiesOf(const ObjectBody& entity);

/// The store in which an entity's names are looked up: its own or, before it has one, the working
/// drawing's. Null when there is neither.
Store* namesOf(const ObjectBody& entity);
/// Live record of a table by name, or null.
const ObjectBody* liveSymbol(const ObjectBody& entity, std::string_view table,
                             std::wstring_view name);
/// Id of that record, or the null id.
AcDbObjectId symbolId(const ObjectBody& entity, std::string_view table, std::wstring_view name);

/// Tags of a new text, attribute or definition without text, up to the marker of its last subclass.
std::string newText(std::string_view type, std::string_view lastSubclass);

/// A setter of one field: access check, the change.
template <typename Field, typename Value>
Acad::ErrorStatus changeField(const AcDbObject& object, const char* call, const Field& field,
                              const Value& value) {
    const Acad::ErrorStatus status = startChange(object, call);
    if (status == Acad::eOk) setField(object.body(), field, value);
    return status;
}
/// The same for a text that the caller passes; eInvalidInput for null.
Acad::ErrorStatus changeText(const AcDbObject& object, const char* call, const TextField& field,
                             const ACHAR* text);
/// The same for reals; eInvalidInput for NaN and infinity, which no drawing can hold.
Acad::ErrorStatus changeReal(const AcDbObject& object, const char* call, const RealField& field,
                             double value);
Acad::ErrorStatus changePoint(const AcDbObject& object, const char* call, const PointField& field,
                              const AcGePoint3d& point);
/// The same for one bit of a flags field.
Acad::ErrorStatus changeFlag(const AcDbObject& object, const char* call, const IntegerField& field,
                             int bit, bool on);

}  // namespace host
