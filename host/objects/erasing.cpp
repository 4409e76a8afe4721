// Erasing objects with what they own.
#include "host/objects/erasing.h"

#include <vector>

#include "host/content/dictionary_text.h"
#include "host/store/body_text.h"
#include "host/store/store.h"

namespace host {
namespace {

/// The extension dictionary that an object names, when it is there and the object's own.
ObjectBody* ownDictionary(const ObjectBody& body) {
    ObjectBody* const found = body.store->byHandle(extensionDictionaryHandle(body.tags()));
    return found != nullptr && found->kind == Kind::Dictionary && found->owner == body.self
               ? found
               : nullptr;
}

/// What goes together with a body.
std::vector<ObjectBody*> ownedBodies(const ObjectBody& body) {
    const Store& store = *body.store;
    std::vector<ObjectBody*> owned;
    if (isEntityKind(body.kind)) {
        for (Index index = body.firstChild; index != kNoIndex; index = store.at(index).next)
            owned.push_back(&store.at(index));
        if (body.sequenceEnd != kNoIndex) owned.push_back(&store.at(body.sequenceEnd));
    }
    if (body.kind == Kind::Dictionary) {
        DictionaryReader reader(body.tags());
        for (DictionaryEntry entry; reader.next(entry);) {
            ObjectBody* const value = store.byHandle(entry.handle);
            if (value != nullptr && value->owner == body.self) owned.push_back(value);
        }
    }
    if (ObjectBody* const dictionary = ownDictionary(body)) owned.push_back(dictionary);
    return owned;
}

}  // namespace

void eraseWithOwned(ObjectBody& body) {
    Store& store = *body.store;
    std::vector<ObjectBody*> waiting{&body};
    while (!waiting.empty()) {
        ObjectBody& next = *waiting.back();
        waiting.pop_back();
        if (next.erased) continue;
        store.setErased(next, true);
        const std::vector<ObjectBody*> owned = ownedBodies(next);
        waiting.insert(waiting.end(), owned.rbegin(), owned.rend());
    }
}

}  // namespace host
