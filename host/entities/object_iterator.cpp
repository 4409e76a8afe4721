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

/// The next sub-entity of a parent by slot, erased ones included; slots grow in append order.
Index neighbour(const Store& store, Index parent, Index from, bool backwards) {
    const Index limit = backwards ? kNoIndex : store.count() + 1;
    for (Index at = from; at != limit; backwards ? --at : ++at) {
        const ObjectBody& body = store.at(at);
        const bool delivered = body.kind == Kind::Attribute || body.kind == Kind::Vertex;
        if (delivered && !body.undone && body.owner == parent) return at;
    }
    return kNoIndex;
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

void AcDbObjectIterator::start(bool afterEnd, bool skipDeleted) {
    m_current.setNull();
    const ObjectBody* parent = Store::resolve(m_parent);
    if (afterEnd || parent == nullptr) return;
    const Store& store = *parent->store;
    // Sub-entities join the drawing after their parent, so the search begins there.
    m_current = store.idOf(skipDeleted ? store.firstLive(parent->self)
                                       : neighbour(store, parent->self, parent->self + 1, false));
}

void AcDbObjectIterator::step(bool backwards, bool skipDeleted) {
    const ObjectBody* current = Store::resolve(m_current);
    m_current.setNull();
    if (current == nullptr) return;
    const Store& store = *current->store;
    if (!skipDeleted) {
        const Index from = backwards ? current->self - 1 : current->self + 1;
        m_current = store.idOf(neighbour(store, current->owner, from, backwards));
        return;
    }
    m_current = store.idOf(backwards ? store.previousLive(*current) : store.nextLive(*current));
}

bool AcDbObjectIterator::done() const { return m_current.isNull(); }

AcDbObjectId AcDbObjectIterator::objectId() const { return m_current; }
