// Sources and clones of one cloning, and the steps that all cloning is made of.
#pragma once

#include <vector>

#include "host/content/reference_rewriter.h"
#include "host/store/object_body.h"

namespace host {

class Store;

/// Source and clone bodies, within one store or from one store to another.
class CloneMap {
  public:
    struct Pair {
        const ObjectBody* source;
        Index clone;  ///< in the target store
    };

    /// Adds a pair; a source has one clone at most.
    void add(const ObjectBody& source, const ObjectBody& clone);
    /// Index of the clone in the target store, or kNoIndex.
    Index cloneOf(const ObjectBody& source) const;
    /// In the order in which they were added.
    const std::vector<Pair>& pairs() const { return m_pairs; }

  private:
    /// Where the number of a source's pair stands, or the free place where it belongs.
    std::size_t placeOf(const ObjectBody& source) const;

    std::vector<Pair> m_pairs;
    /// Open addressing; numbers of pairs from 1, 0 is free. (A vector by slot was slower: a map of
    /// few clones has to be cheap in a large drawing too.)
    std::vector<std::uint32_t> m_places;
};

/// A copy under another owner, in `to`; noted in the map, appended to no list.
ObjectBody& cloneBody(const ObjectBody& source, Store& to, Index owner, CloneMap& map);
/// A copy of a main entity with its attributes, vertices and sequence end, appended to a block
/// record; the space marks of all fit the block.
void cloneEntity(const ObjectBody& source, Store& to, ObjectBody& owner, CloneMap& map);
/// True when an object is one that `owner`, which names it as its own, takes along: it lives, has
/// no clone yet, and says that it is owned, or is in a dictionary, whatever it says.
bool goesAlong(const ObjectBody& owner, const ObjectBody* object, const CloneMap& map);

/// Turns references among sources to their clones; `others` says what becomes of those that name
/// no source. Leaves clones alone that stood in `to` before `firstNew`.
using FateOfOthers = ReferenceFate (*)(const ObjectBody& clone, ReferencePlace place, int code);
void translateClones(const Store& from, Store& to, const CloneMap& map, Index firstNew,
                     FateOfOthers others);

}  // namespace host
