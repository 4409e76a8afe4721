// Second step of loading: handles, names, blocks, spaces and owners.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/dxf/load/drawing_builder.h"
#include "host/dxf/load/finding.h"
#include "host/store/store.h"

namespace host {

/// Ties together what the first step left loose, now that every object has been read.
class DrawingLinker {
  public:
    DrawingLinker(Store& store, TagStream& stream, LoadedParts& parts)
        : m_store(store), m_stream(stream), m_parts(parts) {}
    /// False after an error.
    bool link();
    /// What the file lacked and now has, one finding each.
    std::vector<Finding> supplied() const;

  private:
    void assignHandles();
    void readDataRecords();
    void updateHandleSeed();
    bool indexSymbols();
    bool linkBlocks();
    void placeEntities();
    void placeRange(const SlotRange& range, Index block);
    Index spaceOf(Index entity);
    void linkObjects();
    void adoptDictionaryEntries();
    bool isHeldBy(const ObjectBody& dictionary, const ObjectBody& value);
    bool claims(const ObjectBody& owner, std::uint64_t handle);
    void breakOwnerCycles();

    Store& m_store;
    TagStream& m_stream;
    LoadedParts& m_parts;
    std::uint64_t m_seedRead = 0;  ///< $HANDSEED, when it is above all handles; else 0
    Index m_handlesMissing = 0;
    Index m_slotsRead = 0;  ///< slots behind these were supplied
    std::unordered_map<Index, std::unordered_set<std::uint64_t>> m_claims;  ///< by owner
    Index m_modelSpace = kNoIndex;
    Index m_paperSpace = kNoIndex;
};

}  // namespace host
