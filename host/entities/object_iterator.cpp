// The iterator over the sub-entities of one entity.
#include "host/control/accounting.h"
#include "host/objectarx/entities.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

using namespace host;

AcDbObjectIterator::AcDbObjectIterator(const AcDbEntity& parent) : m_parent(parent.objectId()) {
    holdIterator(this, "the sub-entities of " + formatHandle(parent.body().handle));
    start();
}

AcDbObjectIterator::~AcDbObjectIterator() { returnIterator(this); }

void AcDbObjectIterator::start() {
    const ObjectBody* const parent = Store::resolve(m_parent);
    m_current = parent != nullptr ? parent->store->idOf(parent->store->firstLive(parent->self))
                                  : AcDbObjectId();
}

void AcDbObjectIterator::step() {
    const ObjectBody* const current = Store::resolve(m_current);
    m_current = current != nullptr ? current->store->idOf(current->store->nextLive(*current))
                                   : AcDbObjectId();
}

bool AcDbObjectIterator::done() const { return m_current.isNull(); }

AcDbObjectId AcDbObjectIterator::objectId() const { return m_current; }
