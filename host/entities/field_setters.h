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

/// The working drawing's store, or null.
Store* workingStore();
/// Live record of a table by name, or null. It is looked up in the entity's own drawing or, before
/// it has one, in the working one.
const ObjectBody* liveSymbol(const ObjectBody& entity, std::string_view table,
                             std::wstring_view name);
/// Id of that record, or the null id.
AcDbObjectId symbolId(const ObjectBody& entity, std::string_view table, std::wstring_view name);

/// Tags of a new text, attribute or definition without text, up to the marker of its last subclass.
std::string newText(std::string_view type, std::string_view lastSubclass);

/// True for numbers that a drawing can hold: neither NaN nor infinity.
bool isFinite(double x, double y, double z);

/// A setter of one field: access check, eInvalidInput for a value that is none, the change.
template <typename AnyField, typename Value>
Acad::ErrorStatus changeField(const AcDbObject& object, const char* call, const AnyField& field,
                              const Value& value, bool isValid = true) {
    const Acad::ErrorStatus status = startChange(object, call);
    if (status != Acad::eOk) return status;
    if (!isValid) return Acad::eInvalidInput;
    setField(object.body(), field, value);
    return Acad::eOk;
}
/// The same for a text that the caller passes; eInvalidInput for null.
Acad::ErrorStatus changeText(const AcDbObject& object, const char* call, const TextField& field,
                             const ACHAR* text);
/// The same for reals; eInvalidInput for those that are not finite.
Acad::ErrorStatus changeReal(const AcDbObject& object, const char* call, const RealField& field,
                             double value);
Acad::ErrorStatus changePoint(const AcDbObject& object, const char* call, const PointField& field,
                              const AcGePoint3d& point);
/// The same for one bit of a flags field.
Acad::ErrorStatus changeFlag(const AcDbObject& object, const char* call, const IntegerField& field,
                             int bit, bool on);

}  // namespace host
