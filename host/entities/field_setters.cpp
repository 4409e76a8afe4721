// The setters of the entity classes: access check, change; sub-entities and names.
#include "host/entities/field_setters.h"

#include <cmath>

#include "host/control/faults.h"
#include "host/objectarx/database.h"

namespace host {
Acad::ErrorStatus startChange(const AcDbObject& object, const char* call) {
    if (callFails(call)) return Acad::eNotOpenForWrite;
    return object.body().openForWrite ? Acad::eOk : Acad::eNotOpenForWrite;
}

Acad::ErrorStatus openEnd(const AcDbEntity& parent, AcDbSequenceEnd*& end, AcDb::OpenMode mode) {
    const ObjectBody& body = parent.body();
    if (body.store == nullptr || body.sequenceEnd == kNoIndex) return Acad::eNullObjectId;
    return openAs(end, body.store->at(body.sequenceEnd), mode);
}

std::vector<ObjectBody*> subEntitiesOf(const ObjectBody& entity) {
    std::vector<ObjectBody*> found;
    if (entity.store == nullptr) return found;
    const Store& store = *entity.store;
    for (ObjectBody& child : store.children(entity.self))
        found.push_back(&child);
    if (entity.sequenceEnd != kNoIndex && !store.at(entity.sequenceEnd).erased) {
        found.push_back(&store.at(entity.sequenceEnd));
    }
    return found;
}

Store* workingStore() {
    const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
    return working != nullptr ? &working->store() : nullptr;
}

const ObjectBody* liveSymbol(const ObjectBody& entity, std::string_view table,
                             std::wstring_view name) {
    const Store* store = entity.store != nullptr ? entity.store : workingStore();
    return store != nullptr ? store->liveSymbol(table, name) : nullptr;
}

AcDbObjectId symbolId(const ObjectBody& entity, std::string_view table, std::wstring_view name) {
    const ObjectBody* record = liveSymbol(entity, table, name);
    return record != nullptr ? record->store->idOf(*record) : AcDbObjectId();
}

bool isFinite(double x, double y, double z) {
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z);
}

Acad::ErrorStatus changeText(const AcDbObject& object, const char* call, const TextField& field,
                             const ACHAR* text) {
    const Acad::ErrorStatus status = startChange(object, call);
    if (status != Acad::eOk) return status;
    if (text == nullptr || !fitsValue(object.body(), text)) return Acad::eInvalidInput;
    setField(object.body(), field, text);
    return Acad::eOk;
}

Acad::ErrorStatus changeReal(const AcDbObject& object, const char* call, const RealField& field,
                             double value) {
    return changeField(object, call, field, value, std::isfinite(value));
}

Acad::ErrorStatus changePoint(const AcDbObject& object, const char* call, const PointField& field,
                              const AcGePoint3d& point) {
    return changeField(object, call, field, point, isFinite(point.x, point.y, point.z));
}

Acad::ErrorStatus changeFlag(const AcDbObject& object, const char* call, const IntegerField& field,
                             int bit, bool on) {
    const int flags = getField(object.body(), field);
    return changeField(object, call, field, on ? flags | bit : flags & ~bit);
}

}  // namespace host
