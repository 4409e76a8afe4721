// Entity access of the ADS interface: the walk through drawing order and definition data.
#include "host/objectarx/entity_access.h"

#include "host/control/faults.h"
#include "host/entities/field_setters.h"
#include "host/objects/result_list.h"
#include "host/tags/tag_walk.h"

namespace host {
namespace {

/// The entity of the working drawing that a name stands for, erased or not, or null.
ObjectBody* entityOf(const ads_name name) {
    ObjectBody* body = Store::resolve(idOfName(name));
    if (body == nullptr || body->store != workingStore() || !isEntityKind(body->kind)) {
        return nullptr;
    }
    return body;
}

/// The live entity behind `body` in its block, or kNoIndex at the block's end.
Index following(const Store& store, const ObjectBody& body) {
    const bool isMain = !isSubEntityKind(body.kind);
    const ObjectBody& main = isMain ? body : store.at(body.owner);
    if (body.kind != Kind::SequenceEnd) {
        const Index part = isMain ? store.firstLive(body.self) : store.nextLive(body);
        if (part != kNoIndex) return part;
        const Index end = main.sequenceEnd;
        if (end != kNoIndex && !store.at(end).erased) return end;
    }
    return store.nextLive(main);
}

/// Adds the stored tags but for the type, the handle and the owner, which stand in front.
void addOwnTags(ResultList& list, const ObjectBody& body) {
    TagWalk tag(body.tags());
    while (tag.next() && tag.zone() != TagZone::Extended) {
        const bool stands = tag.role() == TagRole::Type || tag.role() == TagRole::Handle ||
                            tag.role() == TagRole::Owner;
        if (!stands) list.addTag(*body.store, tag.tag(), tag.reader());
    }
}

int answer(const Store& store, Index entity, ads_name result) {
    if (entity == kNoIndex) return RTERROR;
    nameOfId(store.idOf(entity), result);
    return RTNORM;
}

}  // namespace
}  // namespace host

using namespace host;

int acdbEntNext(const ads_name entity, ads_name result) {
    if (callFails("acdbEntNext")) return RTERROR;
    const Store* store = workingStore();
    if (store == nullptr || result == nullptr) return RTERROR;
    if (entity == nullptr) return answer(*store, store->firstLive(store->modelSpace()), result);
    const ObjectBody* start = entityOf(entity);
    return start != nullptr ? answer(*store, following(*store, *start), result) : RTERROR;
}

int acdbEntLast(ads_name result) {
    if (callFails("acdbEntLast")) return RTERROR;
    const Store* store = workingStore();
    if (store == nullptr || result == nullptr) return RTERROR;
    return answer(*store, store->lastLive(store->currentSpace()), result);
}

resbuf* acdbEntGet(const ads_name entity) {
    if (callFails("acdbEntGet")) return nullptr;
    const ObjectBody* body = entityOf(entity);
    if (body == nullptr || body->erased) return nullptr;
    const Store& store = *body->store;
    ResultList list;
    list.addName(-1, store.idOf(*body));
    list.addText(0, store.decode(body->type()));
    list.addName(330, store.idOf(body->owner));
    list.addText(5, fromUtf8(formatHandle(body->handle)));
    addOwnTags(list, *body);
    // A sequence end names the entity that it ends.
    if (body->kind == Kind::SequenceEnd) list.addName(-2, store.idOf(body->owner));
    return list.release();
}
