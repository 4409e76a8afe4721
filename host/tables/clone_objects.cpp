// The interface's deep cloning: what it refuses, and the map that it hands back.
#include "host/clone/deep_clone.h"
#include "host/control/faults.h"
#include "host/objectarx/database.h"
#include "host/objects/opening.h"
#include "host/store/store.h"

namespace host {
namespace {

constexpr const char* kCall = "AcDbDatabase::deepCloneObjects";

Acad::ErrorStatus findOwner(const Store& store, AcDbObjectId id, ObjectBody*& owner) {
    if (id.isNull()) return Acad::eNullObjectId;
    owner = bodyOfId(id, kCall);
    if (owner == nullptr) return Acad::eInvalidInput;
    if (owner->store != &store) return Acad::eWrongDatabase;
    if (owner->kind != Kind::BlockRecord) return Acad::eWrongObjectType;
    if (owner->erased) return Acad::eWasErased;
    if (owner->openForWrite) return Acad::eWasOpenForWrite;
    return owner->readers > 0 ? Acad::eWasOpenForRead : Acad::eOk;
}

Acad::ErrorStatus checkSource(const Store& store, const ObjectBody& source, Index firstOwner) {
    if (source.store != &store) return Acad::eWrongDatabase;
    // A block takes main entities only.
    if (!isMainEntity(source)) return Acad::eInvalidInput;
    if (source.owner != firstOwner) return Acad::eInvalidInput;
    return source.openForWrite ? Acad::eWasOpenForWrite : Acad::eOk;
}

/// The objects to clone: what the ids name but for the erased.
Acad::ErrorStatus findSources(const Store& store, const AcDbObjectIdArray& ids,
                              std::vector<ObjectBody*>& sources) {
    for (int at = 0; at < ids.length(); ++at) {
        if (ids[at].isNull()) return Acad::eNullObjectId;
        ObjectBody* source = bodyOfId(ids[at], kCall);
        if (source == nullptr) return Acad::eInvalidInput;
        if (source->erased) continue;
        const Index firstOwner = sources.empty() ? source->owner : sources.front()->owner;
        const Acad::ErrorStatus status = checkSource(store, *source, firstOwner);
        if (status != Acad::eOk) return status;
        sources.push_back(source);
    }
    return Acad::eOk;
}

}  // namespace
}  // namespace host

using namespace host;

AcDbIdMapping::AcDbIdMapping() : m_map(std::make_unique<CloneMap>()) {}
AcDbIdMapping::~AcDbIdMapping() = default;

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(AcDbObjectIdArray& objectIds, AcDbObjectId& owner,
                                                 AcDbIdMapping& idMap, bool deferXlation) {
    if (callFails(kCall)) return Acad::eOutOfMemory;
    if (objectIds.length() == 0) return Acad::eOk;
    ObjectBody* target = nullptr;
    Acad::ErrorStatus status = findOwner(store(), owner, target);
    if (status != Acad::eOk) return status;
    std::vector<ObjectBody*> sources;
    status = findSources(store(), objectIds, sources);
    if (status != Acad::eOk) return status;
    copyWithOwned(store(), sources, *target, idMap.map());
    if (!deferXlation) translateReferences(store(), idMap.map());
    return Acad::eOk;
}
