// Drawing order: the lists of children, with erasing and taking it back.
//
// A list holds its members in the order of their indexes. An erased body is unlinked but keeps its
// own links as hints: whatever was erased, restored or appended since, the right place is between
// the nearest members below and above the body's index.
#include "host/store/body_text.h"
#include "host/store/journal.h"
#include "host/store/store.h"

namespace host {

/// Sub-entities of an erased entity stand in its list although they are erased.
bool Store::staysLinked(const ObjectBody& body) const {
    return body.erasedWithOwner && isEntityKind(at(body.owner).kind);
}

Index Store::listParent(const ObjectBody& body) const {
    if (isObjectKind(body.kind)) return m_objectsList;
    const bool inNone = isTableKind(body.kind) || body.kind == Kind::SequenceEnd ||
                        body.kind == Kind::BlockBegin || body.kind == Kind::BlockEnd;
    return inNone ? kNoIndex : body.owner;
}

void Store::appendChild(Index parent, ObjectBody& child) {
    // The kind tells a body's list, also in a damaged drawing where types stand in wrong places.
    if (parent == m_objectsList) {
        if (!isObjectKind(child.kind)) child.kind = Kind::Object;
    } else {
        if (isObjectKind(child.kind)) child.kind = Kind::OtherRecord;
        child.owner = parent;
    }
    ObjectBody& list = at(parent);
    child.previous = list.lastChild;
    child.next = kNoIndex;
    (child.previous != kNoIndex ? at(child.previous).next : list.firstChild) = child.self;
    list.lastChild = child.self;
    ++revision;
}

void Store::setSequenceEnd(ObjectBody& parent, ObjectBody& end) {
    m_journal->flagsChange(parent);
    parent.sequenceEnd = end.self;
    end.owner = parent.self;
    ++revision;
}

/// True when a body stands in a list now.
bool Store::isMember(const ObjectBody& body, const ObjectBody& list) const {
    if (!isLinked(body) || listParent(body) != list.self) return false;
    return (body.previous != kNoIndex ? at(body.previous).next : list.firstChild) == body.self;
}

Index Store::liveBefore(const ObjectBody& body) const {
    const ObjectBody& list = at(listParent(body));
    if (list.firstChild == kNoIndex || list.firstChild > body.self) return kNoIndex;
    if (list.lastChild < body.self) return list.lastChild;
    // The former neighbours, unless members came between since.
    const ObjectBody& before = at(body.previous);
    if (body.previous != kNoIndex && isLinked(before) && before.next > body.self)
        return body.previous;
    const ObjectBody& behind = at(body.next);
    if (body.next != kNoIndex && isLinked(behind) && behind.previous < body.self)
        return behind.previous;
    // Else the nearest member by index: restoring n of n slots in any order costs n log n.
    for (Index distance = 1;; ++distance) {
        if (distance < body.self && isMember(at(body.self - distance), list))
            return body.self - distance;
        if (distance <= m_count - body.self && isMember(at(body.self + distance), list))
            return at(body.self + distance).previous;
    }
}

void Store::link(ObjectBody& body) {
    ObjectBody& list = at(listParent(body));
    body.previous = liveBefore(body);
    body.next = body.previous != kNoIndex ? at(body.previous).next : list.firstChild;
    (body.previous != kNoIndex ? at(body.previous).next : list.firstChild) = body.self;
    (body.next != kNoIndex ? at(body.next).previous : list.lastChild) = body.self;
}

void Store::unlink(ObjectBody& body) {
    ObjectBody& list = at(listParent(body));
    (body.previous != kNoIndex ? at(body.previous).next : list.firstChild) = body.next;
    (body.next != kNoIndex ? at(body.next).previous : list.lastChild) = body.previous;
}

void Store::setErased(ObjectBody& body, bool erased) {
    if (body.erased == erased) return;
    const bool inList = listParent(body) != kNoIndex;
    ObjectBody& owner = at(body.owner);
    m_journal->flagsChange(body);
    if (erased) {
        body.erasedWithOwner = owner.erased;
        if (inList && !staysLinked(body)) unlink(body);
        body.erased = true;
    } else {
        if (inList && !staysLinked(body)) link(body);
        body.erased = false;
        body.erasedWithOwner = false;
    }
    if (body.kind == Kind::Dictionary && extensionDictionaryHandle(owner.tags()) == body.handle) {
        m_journal->flagsChange(owner);
        owner.releasedLater = erased && !body.erasedWithOwner;
    }
    recordsChanged(body.kind);
    ++revision;
}

Index Store::firstLive(Index parent) const {
    Index index = at(parent).firstChild;
    while (at(index).erased)
        index = at(index).next;
    return index;
}

Index Store::lastLive(Index parent) const {
    Index index = at(parent).lastChild;
    while (at(index).erased)
        index = at(index).previous;
    return index;
}

Index Store::nextLive(const ObjectBody& body) const {
    const Index parent = listParent(body);
    Index index = body.next;
    if (parent != kNoIndex && !isLinked(body)) {
        const Index before = liveBefore(body);
        index = before != kNoIndex ? at(before).next : at(parent).firstChild;
    }
    while (at(index).erased)
        index = at(index).next;
    return index;
}

Index Store::previousLive(const ObjectBody& body) const {
    const bool inPlace = listParent(body) == kNoIndex || isLinked(body);
    Index index = inPlace ? body.previous : liveBefore(body);
    while (at(index).erased)
        index = at(index).previous;
    return index;
}

}  // namespace host
