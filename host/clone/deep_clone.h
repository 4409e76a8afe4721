// Deep cloning: copies objects with all they own and translates references among the copies.
#pragma once

#include <vector>

#include "host/store/object_body.h"

namespace host {

class Store;

/// Source and clone bodies of one cloning, within one store or from one store to another.
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
    bool empty() const { return m_pairs.empty(); }
    /// In the order in which they were added.
    const std::vector<Pair>& pairs() const { return m_pairs; }

  private:
    std::size_t firstPlace(const ObjectBody& source) const;
    void insert(std::uint32_t number);

    std::vector<Pair> m_pairs;
    std::vector<std::uint32_t> m_places;  ///< open addressing; numbers of pairs from 1, 0 is free
};

/// Clones each source, a live main entity, with what it owns, hard and soft, and appends the clones
/// to `owner`, a block record of the same store, in list order. A source that the map holds already
/// is passed over. No access checks; the interface call makes them.
void deepClone(Store& store, const std::vector<ObjectBody*>& sources, ObjectBody& owner,
               CloneMap& map);

/// The two halves of it, for a cloning in several calls: all the copying comes first, then one
/// translation of all that the map holds.
void copyWithOwned(Store& store, const std::vector<ObjectBody*>& sources, ObjectBody& owner,
                   CloneMap& map);
void translateReferences(Store& store, const CloneMap& map);

}  // namespace host
