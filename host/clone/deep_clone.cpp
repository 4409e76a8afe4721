// Deep cloning: copies with all they own, references among them turned to the copies.
#include "host/clone/deep_clone.h"

#include "host/clone/back_pointers.h"
#include "host/clone/drawing_lists.h"
#include "host/content/paper_viewport.h"
#include "host/store/store.h"

namespace host {
namespace {

/// Copies what a source owns beside its sub-entities.
void cloneOwned(Store& store, const ObjectBody& source, CloneMap& map) {
    TagWalk tag(source.tags());
    while (tag.next()) {
        if (!isOwnerCode(tag.code())) continue;
        const ObjectBody* owned = store.byHandle(tag.value());
        if (goesAlong(source, owned, map))
            store.appendChild(store.objectsList(),
                              cloneBody(*owned, store, map.cloneOf(source), map));
    }
}

/// The drawing is the same, so references stay; but what reactors, extension dictionaries and
/// entries name is tied to the source.
ReferenceFate fateInSameDrawing(const ObjectBody&, ReferencePlace place, int) {
    const bool tied = place == ReferencePlace::Link || place == ReferencePlace::Entry;
    return {tied ? ReferenceFate::Drop : ReferenceFate::Keep};
}

}  // namespace

void copyWithOwned(Store& store, const std::vector<ObjectBody*>& sources, ObjectBody& owner,
                   CloneMap& map) {
    for (const ObjectBody* source : sources) {
        if (map.cloneOf(*source) != kNoIndex) continue;
        std::size_t open = map.pairs().size();
        cloneEntity(*source, store, owner, map);
        for (; open < map.pairs().size(); ++open)
            cloneOwned(store, *map.pairs()[open].source, map);
    }
}

void translateReferences(Store& store, const CloneMap& map) {
    translateClones(store, store, map, kNoIndex, fateInSameDrawing);
    enterInDefinitions(store, store, map, store.count() + 1);
    enterInListings(store, store, map);
    for (const CloneMap::Pair& pair : map.pairs())
        passOnLastViewport(*pair.source, store.at(pair.clone));
}

}  // namespace host
