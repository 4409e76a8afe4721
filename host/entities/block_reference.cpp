// Block references: placement, their block, their attributes with the sequence end.
#include "host/control/faults.h"
#include "host/entities/field_setters.h"
#include "host/tags/tags.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Tags of a new reference to a block, whose name is in UTF-8.
std::string newInsert(std::string_view blockName, const AcGePoint3d& position) {
    std::string text = storedTags({{0, "INSERT"},
                                   {100, "AcDbEntity"},
                                   {8, "0"},
                                   {100, "AcDbBlockReference"},
                                   {2, blockName}});
    addPointTag(text, 10, position.x, position.y, position.z);
    return text;
}

/// Name of the block that an id names, in UTF-8; empty when it names none.
std::string blockNameOf(AcDbObjectId id) {
    const ObjectBody* record = Store::resolve(id);
    if (record == nullptr || record->kind != Kind::BlockRecord) return std::string();
    return encodeText(symbolName(*record), Encoding());
}

AcGePoint3d finite(const AcGePoint3d& point) {
    return isFinite(point.x, point.y, point.z) ? point : AcGePoint3d();
}

/// Gives a reference its sequence end, on the reference's layer and in its space.
void addSequenceEnd(ObjectBody& reference) {
    Store& store = *reference.store;
    ObjectBody& end =
        store.make(Kind::SequenceEnd, storedTags({{0, "SEQEND"}, {100, "AcDbEntity"}, {8, "0"}}),
                   reference.self);
    copyField(reference, end, field::paperSpace.place);
    copyField(reference, end, field::layer.place);
    store.setSequenceEnd(reference, end);
}

}  // namespace
}  // namespace host

using namespace host;

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : AcDbBlockReference(freshBody(Kind::BlockReference,
                                   newInsert(blockNameOf(blockTableRecord), finite(position)))) {}

AcGePoint3d AcDbBlockReference::position() const { return getField(body(), field::insertionPoint); }

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& position) {
    return changePoint(*this, "AcDbBlockReference::setPosition", field::insertionPoint, position);
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
    const Acad::ErrorStatus status = startChange(*this, "AcDbBlockReference::setScaleFactors");
    if (status != Acad::eOk) return status;
    if (!isFinite(scale.sx, scale.sy, scale.sz)) return Acad::eInvalidInput;
    setField(body(), field::scaleX, scale.sx);
    setField(body(), field::scaleY, scale.sy);
    setField(body(), field::scaleZ, scale.sz);
    return Acad::eOk;
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
    return symbolId(body(), "BLOCK_RECORD", getField(body(), field::blockName));
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
    id.setNull();
    const Acad::ErrorStatus status = startChange(*this, "AcDbBlockReference::appendAttribute");
    if (status != Acad::eOk) return status;
    if (attribute == nullptr) return Acad::eNullObjectPointer;
    if (body().store == nullptr) return Acad::eNotInDatabase;
    Store& store = *body().store;
    const Acad::ErrorStatus joined = makeResident(*attribute, store, body().self);
    if (joined != Acad::eOk) return joined;
    copyField(body(), attribute->body(), field::paperSpace.place);
    store.appendChild(body().self, attribute->body());
    if (body().sequenceEnd == kNoIndex) {
        addSequenceEnd(body());
    } else if (store.at(body().sequenceEnd).erased) {
        store.setErased(store.at(body().sequenceEnd), false);
    }
    setField(body(), field::attributesFollow, 1);
    id = attribute->objectId();
    return Acad::eOk;
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    return new AcDbObjectIterator(*this);
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id,
                                                    AcDb::OpenMode mode) {
    attribute = nullptr;
    if (callFails("AcDbBlockReference::openAttribute")) return Acad::eWasOpenForWrite;
    if (id.isNull()) return Acad::eNullObjectId;
    ObjectBody* found = bodyOfId(id, "AcDbBlockReference::openAttribute");
    if (found == nullptr || found->store != body().store || found->owner != body().self) {
        return Acad::eInvalidInput;
    }
    return openAs(attribute, *found, mode);
}

Acad::ErrorStatus AcDbBlockReference::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode) {
    end = nullptr;
    if (callFails("AcDbBlockReference::openSequenceEnd")) return Acad::eWasOpenForWrite;
    return openEnd(*this, end, mode);
}
