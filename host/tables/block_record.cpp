// Block table records: their entities, base point, and the walk over a block.
#include <unordered_set>

#include "host/content/fields.h"
#include "host/control/accounting.h"
#include "host/control/faults.h"
#include "host/objectarx/entities.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tags.h"

namespace host {
namespace {

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
    const int flags = integerTag(block.tags(), 70);
    if ((flags & kBlockHasAttributes) != 0) return;
    std::string text(block.tags());
    setTag(text, 70, flags | kBlockHasAttributes);
    block.setTags(text);
}

std::unordered_set<const AcDbBlockTableRecordIterator*>& iterators() {
    static auto& all = *new std::unordered_set<const AcDbBlockTableRecordIterator*>;
    return all;
}

void listIterators(std::vector<std::string>& lines) {
    for (std::size_t count = iterators().size(); count > 0; --count)
        lines.push_back("iterator over a block");
}

}  // namespace
}  // namespace host

AcDbBlockTableRecord::AcDbBlockTableRecord()
    : AcDbSymbolTableRecord(host::freshBody(
          host::Kind::BlockRecord, host::newRecordText("BLOCK_RECORD", "AcDbBlockTableRecord"))) {}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    id.setNull();
    if (host::callFails("AcDbBlockTableRecord::appendAcDbEntity")) return Acad::eOutOfMemory;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (entity == nullptr) return Acad::eNullObjectPointer;
    if (!host::isMainEntity(entity->body())) return Acad::eWrongObjectType;
    host::Store& store = *content.store;
    const Acad::ErrorStatus status = host::makeResident(*entity, store, content.self);
    if (status != Acad::eOk) return status;
    host::ObjectBody& added = entity->body();
    store.appendChild(content.self, added);
    host::noteAttributeDefinition(content, added);
    if (host::isPaperSpace(content)) host::setSpaceMarks(added, true);
    id = store.idOf(added);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator) const {
    iterator = nullptr;
    if (host::callFails("AcDbBlockTableRecord::newIterator")) return Acad::eOutOfMemory;
    if (body().store == nullptr) return Acad::eNotInDatabase;
    iterator = new AcDbBlockTableRecordIterator(*this);
    return Acad::eOk;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    const host::ObjectBody& content = body();
    if (content.store == nullptr) return false;
    for (const host::ObjectBody& entity : content.store->children(content.self))
        if (entity.kind == host::Kind::AttributeDefinition) return true;
    return false;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    if (host::callFails("AcDbBlockTableRecord::setOrigin")) return Acad::eInvalidInput;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    host::ObjectBody& holder = host::pointHolder(content);
    std::string text(holder.tags());
    host::setPointTag(text, 10, origin.x, origin.y, origin.z);
    holder.setTags(text);
    return Acad::eOk;
}

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(const AcDbBlockTableRecord& block) {
    host::addHeldLister(host::listIterators);
    host::iterators().insert(this);
    host::countHeld(host::Held::Iterator);
    const host::Store& store = *block.body().store;
    m_current = store.idOf(store.firstLive(block.body().self));
}

AcDbBlockTableRecordIterator::~AcDbBlockTableRecordIterator() {
    host::iterators().erase(this);
    host::countReturned(host::Held::Iterator);
}

void AcDbBlockTableRecordIterator::step() {
    const host::ObjectBody* const current =
        host::bodyOfId(m_current, "AcDbBlockTableRecordIterator::step");
    m_current = current != nullptr ? current->store->idOf(current->store->nextLive(*current))
                                   : AcDbObjectId();
}

bool AcDbBlockTableRecordIterator::done() const { return m_current.isNull(); }

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity,
                                                          AcDb::OpenMode mode) const {
    entity = nullptr;
    if (host::callFails("AcDbBlockTableRecordIterator::getEntity")) return Acad::eWasOpenForWrite;
    if (done()) return Acad::eInvalidIndex;
    host::ObjectBody* const current =
        host::bodyOfId(m_current, "AcDbBlockTableRecordIterator::getEntity");
    if (current == nullptr) return Acad::eInvalidInput;
    return host::openAs(entity, *current, mode);
}
