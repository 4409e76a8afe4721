// One way to write an object's tags again when objects that it refers to are gone or replaced.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/store/object_body.h"
#include "host/tags/tag_walk.h"

namespace host {

/// What a reference is part of.
enum class ReferencePlace {
    Plain,
    Link,         ///< a bracket of the host's: reactors, extension dictionary, uses of a block
    Application,  ///< any other bracket
    Entry,        ///< of a dictionary
    Member,       ///< of a GROUP, a SORTENTSTABLE, the boundary of a HATCH
};

/// What becomes of a reference: it stays, goes, or turns to another handle (0: to nothing).
struct ReferenceFate {
    enum Action { Keep, Drop, Turn } action = Keep;
    std::uint64_t handle = 0;
};

/// Writes the tags of one object after the other, all references as `decide` says; the object's
/// owner is none of them. What a dropped reference leaves behind goes too: the key of an entry, the
/// sort handle of a pair, a bracket that held nothing else. A hatch counts its boundary objects
/// anew and follows them no longer (71).
class ReferenceRewriter {
  public:
    using Decide = std::function<ReferenceFate(const ObjectBody& holder, ReferencePlace place,
                                               const Tag& reference)>;
    explicit ReferenceRewriter(Decide decide) : m_decide(std::move(decide)) {}

    /// The tags; borrowed until the next call.
    const std::string& rewritten(const ObjectBody& holder);

  private:
    enum class Pair { None, Kept, Dropped };

    void addReference(const TagWalk& tag);
    void addOther(const TagWalk& tag);
    void addSortHandle(const TagWalk& tag);
    void endBoundary();
    ReferencePlace placeOf(const TagWalk& tag) const;
    bool is(std::string_view type) const { return m_type == type; }

    Decide m_decide;
    std::string m_text;
    const ObjectBody* m_holder = nullptr;
    std::string_view m_type;
    std::size_t m_keyAt = 0;      ///< where the key of the next entry stands, or npos
    std::size_t m_bracketAt = 0;  ///< where the outermost bracket begins
    bool m_bracketKeeps = false;  ///< it holds something
    bool m_bracketLost = false;   ///< something in it was dropped
    bool m_inBoundary = false;    ///< behind a count (97) and the objects it counts
    std::size_t m_countAt = 0, m_countEnd = 0;
    int m_counted = 0;
    bool m_boundaryLost = false;
    Pair m_pair = Pair::None;  ///< what became of the entity whose sort handle follows
};

}  // namespace host
