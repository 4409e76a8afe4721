// Block table records: their entities, base point, and the walk over a block.
#include "host/content/fields.h"
#include "host/control/accounting.h"
#include "host/control/faults.h"
#include "host/objectarx/entities.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"

namespace host {
namespace {

constexpr IntegerField kBlockFlags{{"", 70, 0, true}};
constexpr int kBlockHasAttributes = 2;

/// The body whose tags hold a block's base point: its BLOCK, or a new record itself.
ObjectBody& pointHolder(ObjectBody& record) {
    if (record.store == nullptr) return record;
    const BlockParts parts = record.store->blockParts(record.self);
    return parts.begin != kNoIndex ? record.store->at(parts.begin) : record;
}

void noteAttributeDefinition(ObjectBody& record, const ObjectBody& definition) {
    if (definition.kind != Kind::AttributeDefinition) return;
    if ((getField(definition, field::definitionFlags) & field::kConstant) != 0) return;
    ObjectBody& block = pointHolder(record);
    const int flags = getField(block, kBlockFlags);
    if ((flags & kBlockHasAttributes) == 0)
        setField(block, kBlockFlags, flags | kBlockHasAttributes);
}

}  // namespace
}  // namespace host

using namespace host;

AcDbBlockTableRecord::AcDbBlockTableRecord()
    : AcDbSymbolTableRecord(
          freshBody(Kind::BlockRecord, newRecordText("BLOCK_RECORD", "AcDbBlockTableRecord"))) {}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    id.setNull();
    if (callFails("AcDbBlockTableRecord::appendAcDbEntity")) return Acad::eOutOfMemory;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (entity == nullptr) return Acad::eNullObjectPointer;
    if (!isMainEntity(entity->body())) return Acad::eWrongObjectType;
    Store& store = *content.store;
    const Acad::ErrorStatus status = makeResident(*entity, store, content.self);
    if (status != Acad::eOk) return status;
    ObjectBody& added = entity->body();
    store.appendChild(content.self, added);
    noteAttributeDefinition(content, added);
    if (isPaperSpace(content)) setSpaceMarks(added, true);
    id = store.idOf(added);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator) const {
    iterator = nullptr;
    if (callFails("AcDbBlockTableRecord::newIterator")) return Acad::eOutOfMemory;
    if (body().store == nullptr) return Acad::eNotInDatabase;
    iterator = new AcDbBlockTableRecordIterator(*this);
    return Acad::eOk;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    const ObjectBody& content = body();
    if (content.store == nullptr) return false;
    for (const ObjectBody& entity : content.store->children(content.self))
        if (entity.kind == Kind::AttributeDefinition) return true;
    return false;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    if (callFails("AcDbBlockTableRecord::setOrigin")) return Acad::eInvalidInput;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    setField(pointHolder(content), PointField{10}, origin);
    return Acad::eOk;
}

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(const AcDbBlockTableRecord& block) {
    holdIterator(this, "a block");
    const Store& store = *block.body().store;
    m_current = store.idOf(store.firstLive(block.body().self));
}

AcDbBlockTableRecordIterator::~AcDbBlockTableRecordIterator() { returnIterator(this); }

void AcDbBlockTableRecordIterator::step() {
    const ObjectBody* const current = bodyOfId(m_current, "AcDbBlockTableRecordIterator::step");
    m_current = current != nullptr ? current->store->idOf(current->store->nextLive(*current))
                                   : AcDbObjectId();
}

bool AcDbBlockTableRecordIterator::done() const { return m_current.isNull(); }

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity,
                                                          AcDb::OpenMode mode) const {
    entity = nullptr;
    if (callFails("AcDbBlockTableRecordIterator::getEntity")) return Acad::eWasOpenForWrite;
    if (done()) return Acad::eInvalidIndex;
    ObjectBody* const current = bodyOfId(m_current, "AcDbBlockTableRecordIterator::getEntity");
    if (current == nullptr) return Acad::eInvalidInput;
    return openAs(entity, *current, mode);
}
