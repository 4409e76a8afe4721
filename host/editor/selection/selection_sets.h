// Open selection sets and their names.
#pragma once

#include <unordered_set>
#include <vector>

#include "host/objectarx/adesk_types.h"
#include "host/objectarx/object_id.h"

namespace host {

/// At most this many sets may be open at a time. Documented.
constexpr std::size_t kMostSelectionSets = 128;

/// Ordered set of entities. Adding and membership cost constant time.
class SelectionSet {
  public:
    SelectionSet() = default;
    /// Takes over ids that hold no duplicates.
    explicit SelectionSet(std::vector<AcDbObjectId> ids) : m_ids(std::move(ids)) {}

    /// False when the entity was in already.
    bool add(AcDbObjectId id);
    /// False when it is no member. Later members move down by one.
    bool remove(AcDbObjectId id);
    const std::vector<AcDbObjectId>& ids() const { return m_ids; }

  private:
    void fillWords() const;

    std::vector<AcDbObjectId> m_ids;
    /// Words of the ids; filled at first need, since most sets are only walked.
    mutable std::unordered_set<Adesk::UInt64> m_words;
    mutable bool m_wordsFilled = false;
};

/// True while one more set can be opened; otherwise sets ERRNO.
bool canOpenSet();
/// Opens a set of the current drawing and writes its name. The caller asked canOpenSet before.
void openSet(SelectionSet set, ads_name name);
/// The open set with that name made in the current drawing, or null (ERRNO is set then). A set of
/// another drawing is reported as the module's fault in `call`.
SelectionSet* openSetOf(const ads_name name, const char* call);
/// Closes all sets and reports each as a fault.
void resetSelectionSets();

}  // namespace host
