// What a saved drawing says where it named objects that were erased.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/content/reference_rewriter.h"
#include "host/store/store.h"

namespace host {

/// Knows which objects are erased, themselves or by an owner, and rewrites the tags of others so
/// that nothing saved points at them. The store is not changed: erasing may still be taken back.
///
/// Dropped are: the link to an extension dictionary, reactors, entries of dictionaries, members of
/// groups, pairs of sort tables, uses in block records, objects in listings (with their number),
/// boundary objects of hatches (with theirs; such a hatch follows its boundary no longer). Every
/// other pointer becomes 0, and an erased owner that did not hold the object the one that does.
/// Pointers at handles that never existed stay as they are. Chosen.
class ErasedReferences {
  public:
    explicit ErasedReferences(const Store& store);
    ErasedReferences(const ErasedReferences&) = delete;
    ErasedReferences& operator=(const ErasedReferences&) = delete;

    /// True when nothing is erased; then no text needs to be looked at.
    bool none() const { return m_gone.empty(); }
    bool isGone(Index index) const { return !m_gone.empty() && m_gone[index]; }
    /// The tags of a body as they are saved: its own text, or a rewritten one, borrowed until the
    /// next call.
    std::string_view cleaned(const ObjectBody& body);

  private:
    bool isGoneHandle(std::string_view value) const;
    bool pointsAtGone(std::string_view text) const;
    bool namesGoneOwner(std::string_view text) const;
    std::string_view withoutGone(const ObjectBody& listing);

    const Store& m_store;
    ReferenceRewriter m_rewriter;
    std::uint64_t m_recomposed = 0;  ///< see listings.h
    std::string m_listing;           ///< the last one that was rewritten
    std::string m_owned;             ///< the last object that got another owner
    std::vector<bool> m_gone;        ///< by slot index; empty when nothing is erased
};

}  // namespace host
