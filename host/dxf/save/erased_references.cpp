// What a saved drawing says where it named objects that were erased.
#include "host/dxf/save/erased_references.h"

#include <algorithm>

#include "host/content/listings.h"
#include "host/store/body_text.h"
#include "host/tags/tag_walk.h"

namespace host {

ErasedReferences::ErasedReferences(const Store& store)
    : m_store(store),
      m_rewriter([this](const ObjectBody&, ReferencePlace place, const Tag& tag) -> ReferenceFate {
          if (!isGoneHandle(tag.value)) return {};
          const bool alone = place == ReferencePlace::Plain || place == ReferencePlace::Application;
          return {alone ? ReferenceFate::Turn : ReferenceFate::Drop, 0};
      }) {
    const Index count = store.count();
    bool any = false;
    for (Index index = 1; index <= count && !any; ++index)
        any = store.at(index).erased;
    if (!any) return;
    m_recomposed = recomposedList(store);
    m_gone.resize(count + 1);
    std::vector<bool> known(count + 1);
    std::vector<Index> path;
    known[kNoIndex] = true;
    for (Index index = 1; index <= count; ++index) {
        // Up to an owner that is known; in a circle of owners none is erased.
        Index at = index;
        for (; !known[at]; at = store.at(at).owner) {
            known[at] = true;
            m_gone[at] = store.at(at).erased;
            path.push_back(at);
        }
        bool gone = m_gone[at];
        for (; !path.empty(); path.pop_back()) {
            gone = gone || m_gone[path.back()];
            m_gone[path.back()] = gone;
        }
    }
}

bool ErasedReferences::isGoneHandle(std::string_view value) const {
    const ObjectBody* const target = m_store.byHandle(value);
    return target != nullptr && m_gone[target->self];
}

bool ErasedReferences::pointsAtGone(std::string_view text) const {
    TagReader reader(text);
    Tag tag;
    while (reader.next(tag)) {
        if (isReferenceCode(tag.code) && isGoneHandle(tag.value)) return true;
    }
    return false;
}

/// True for an object whose named owner goes, but not with it: another one holds it.
bool ErasedReferences::namesGoneOwner(std::string_view text) const {
    TagWalk tag(text);
    while (tag.next() && tag.zone() <= TagZone::Common)
        if (tag.role() == TagRole::Owner) return isGoneHandle(tag.value());
    return false;
}

std::string_view ErasedReferences::withoutGone(const ObjectBody& listing) {
    std::vector<ListedObject> objects = listedObjects(listing);
    const auto gone = [this](const ListedObject& each) {
        const ObjectBody* const target = m_store.byHandle(each.handle);
        return target != nullptr && isGone(target->self);
    };
    const auto left = std::remove_if(objects.begin(), objects.end(), gone);
    if (left == objects.end()) return listing.tags();
    objects.erase(left, objects.end());
    return m_listing = listingOf(listing, objects);
}

std::string_view ErasedReferences::cleaned(const ObjectBody& body) {
    if (none()) return body.tags();
    if (isListing(body, m_recomposed)) return withoutGone(body);
    if (!pointsAtGone(body.tags())) return body.tags();
    const std::string& text = m_rewriter.rewritten(body);
    if (!isObjectKind(body.kind) || body.owner == kNoIndex || !namesGoneOwner(text)) return text;
    return m_owned = withIdentity(text, body.handle, m_store.at(body.owner).handle);
}

}  // namespace host
