// The iterator over the sub-entities of one entity.
#include <unordered_map>

#include "host/control/accounting.h"
#include "host/objectarx/entities.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

void describeIterators(std::vector<std::string>& lines);

/// Iterators that were not deleted yet, with the handle of what they walk. Never destroyed.
std::unordered_map<const void*, std::uint64_t>& heldIterators() {
    static auto& held = []() -> std::unordered_map<const void*, std::uint64_t>& {
        addHeldLister(describeIterators);
        return *new std::unordered_map<const void*, std::uint64_t>;
    }();
    return held;
}

void describeIterators(std::vector<std::string>& lines) {
    for (const auto& [iterator, handle] : heldIterators()) {
        lines.push_back("iterator over the sub-entities of " + formatHandle(handle));
    }
}

}  // namespace
}  // namespace host

using namespace host;

AcDbObjectIterator::AcDbObjectIterator(const AcDbEntity& parent) : m_parent(parent.objectId()) {
    heldIterators()[this] = parent.body().handle;
    countHeld(Held::Iterator);
    start();
}

AcDbObjectIterator::~AcDbObjectIterator() {
    heldIterators().erase(this);
    countReturned(Held::Iterator);
}

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
