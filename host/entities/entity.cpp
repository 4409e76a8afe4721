// Properties that every entity has, and opening entities.
#include "host/control/faults.h"
#include "host/entities/field_setters.h"

namespace host {
namespace {

constexpr Adesk::UInt16 kByLayer = 256;

/// Sets a field of an entity and, when asked, of its sub-entities.
template <typename AnyField, typename Value>
void setWithSubEntities(ObjectBody& entity, const AnyField& field, const Value& value,
                        bool doSubents) {
    setField(entity, field, value);
    if (!doSubents) return;
    for (ObjectBody* part : subEntitiesOf(entity))
        setField(*part, field, value);
}

/// Spelling under which a linetype is stored, or nothing for an unknown one.
std::optional<std::wstring> knownLinetype(const ObjectBody& entity, const ACHAR* name) {
    const std::wstring folded = foldCase(name);
    if (folded == L"BYLAYER") return std::wstring(field::linetype.fallback);
    if (folded == L"BYBLOCK") return L"ByBlock";
    const ObjectBody* record = liveSymbol(entity, "LTYPE", name);
    if (record == nullptr) return std::nullopt;
    return symbolName(*record);
}

void copyProperties(const ObjectBody& source, ObjectBody& target) {
    if (&source == &target) return;
    for (const FieldPlace& place :
         {field::layer.place, field::linetype.place, field::color.place, field::trueColor,
          field::colorName, field::lineWeight, field::linetypeScale, field::visibility}) {
        copyField(source, target, place);
    }
}

}  // namespace
}  // namespace host

using namespace host;

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, Adesk::Boolean doSubents) {
    const Acad::ErrorStatus status = startChange(*this, "AcDbEntity::setLayer");
    if (status != Acad::eOk) return status;
    if (name == nullptr) return Acad::eInvalidInput;
    const ObjectBody* record = liveSymbol(body(), "LAYER", name);
    if (record == nullptr) return Acad::eKeyNotFound;
    setWithSubEntities(body(), field::layer, symbolName(*record), doSubents);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents) {
    const Acad::ErrorStatus status = startChange(*this, "AcDbEntity::setColorIndex");
    if (status != Acad::eOk) return status;
    if (color > kByLayer) return Acad::eInvalidInput;
    setWithSubEntities(body(), field::color, int(color), doSubents);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, Adesk::Boolean doSubents) {
    const Acad::ErrorStatus status = startChange(*this, "AcDbEntity::setLinetype");
    if (status != Acad::eOk) return status;
    if (name == nullptr) return Acad::eInvalidInput;
    const auto linetype = knownLinetype(body(), name);
    if (!linetype) return Acad::eKeyNotFound;
    setWithSubEntities(body(), field::linetype, *linetype, doSubents);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* source,
                                                Adesk::Boolean doSubents) {
    const Acad::ErrorStatus status = startChange(*this, "AcDbEntity::setPropertiesFrom");
    if (status != Acad::eOk) return status;
    if (source == nullptr) return Acad::eNullObjectPointer;
    const Store* theirs = source->body().store;
    if (theirs != nullptr && body().store != nullptr && theirs != body().store) {
        return Acad::eWrongDatabase;
    }
    copyProperties(source->body(), body());
    if (!doSubents) return Acad::eOk;
    for (ObjectBody* part : subEntitiesOf(body()))
        copyProperties(source->body(), *part);
    return Acad::eOk;
}

AcDbObjectId AcDbEntity::layerId() const {
    return symbolId(body(), "LAYER", getField(body(), field::layer));
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode) {
    entity = nullptr;
    if (callFails("acdbOpenAcDbEntity")) return Acad::eWasOpenForWrite;
    if (id.isNull()) return Acad::eNullObjectId;
    ObjectBody* body = bodyOfId(id, "acdbOpenAcDbEntity");
    return body != nullptr ? openAs(entity, *body, mode) : Acad::eInvalidInput;
}
