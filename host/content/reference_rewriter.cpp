// Rewriting references: lists and counts around them stay true.
#include "host/content/reference_rewriter.h"

#include "host/tags/tag_values.h"

namespace host {

const std::string& ReferenceRewriter::rewritten(const ObjectBody& holder) {
    m_holder = &holder;
    m_type = holder.type();
    m_text.clear();
    m_keyAt = std::string::npos;
    m_inBoundary = false;
    m_pair = Pair::None;
    TagWalk tag(holder.tags());
    while (tag.next()) {
        if (m_inBoundary && tag.code() != 330) endBoundary();
        if (m_pair != Pair::None && tag.code() == 5) {
            addSortHandle(tag);
        } else if (isReferenceCode(tag.code()) && tag.role() != TagRole::Owner) {
            addReference(tag);
        } else {
            addOther(tag);
        }
    }
    if (m_inBoundary) endBoundary();
    return m_text;
}

ReferencePlace ReferenceRewriter::placeOf(const TagWalk& tag) const {
    if (tag.bracket() == Bracket::Other) return ReferencePlace::Application;
    if (tag.bracket() != Bracket::None) return ReferencePlace::Link;
    if (tag.zone() != TagZone::Part) return ReferencePlace::Plain;
    if (m_holder->kind == Kind::Dictionary && isOwnerCode(tag.code())) return ReferencePlace::Entry;
    const bool member = m_inBoundary || (tag.code() == 340 && is("GROUP")) ||
                        (tag.code() == 331 && is("SORTENTSTABLE"));
    return member ? ReferencePlace::Member : ReferencePlace::Plain;
}

void ReferenceRewriter::addReference(const TagWalk& tag) {
    const ReferencePlace place = placeOf(tag);
    const ReferenceFate fate = m_decide(*m_holder, place, tag.tag());
    const bool dropped = fate.action == ReferenceFate::Drop;
    if (dropped && place == ReferencePlace::Entry && m_keyAt != std::string::npos)
        m_text.resize(m_keyAt);
    if (place == ReferencePlace::Entry) m_keyAt = std::string::npos;
    if (fate.action == ReferenceFate::Keep) m_text += tag.stored();
    if (fate.action == ReferenceFate::Turn) addHandleTag(m_text, tag.code(), fate.handle);
    (dropped ? m_bracketLost : m_bracketKeeps) = true;
    if (m_inBoundary) {
        m_counted += dropped ? 0 : 1;
        m_boundaryLost = m_boundaryLost || dropped;
    }
    const bool sorts = place == ReferencePlace::Member && tag.code() == 331;
    m_pair = !sorts ? Pair::None : dropped ? Pair::Dropped : Pair::Kept;
}

/// The handle by which an entity is sorted is that of an entity, perhaps of another one.
void ReferenceRewriter::addSortHandle(const TagWalk& tag) {
    const ReferenceFate fate = m_decide(*m_holder, ReferencePlace::Member, tag.tag());
    if (m_pair == Pair::Kept && fate.action == ReferenceFate::Turn) {
        addHandleTag(m_text, tag.code(), fate.handle);
    } else if (m_pair == Pair::Kept) {
        m_text += tag.stored();
    }
    m_pair = Pair::None;
}

void ReferenceRewriter::addOther(const TagWalk& tag) {
    m_pair = Pair::None;
    const bool outermost = tag.depth() == 1;
    if (outermost && tag.role() == TagRole::Opens) {
        m_bracketAt = m_text.size();
        m_bracketKeeps = m_bracketLost = false;
    } else if (tag.role() != TagRole::Closes) {
        m_bracketKeeps = true;
    }
    if (tag.code() == 3) m_keyAt = m_text.size();
    m_inBoundary = tag.code() == 97 && tag.zone() == TagZone::Part && tag.own() && is("HATCH");
    m_countAt = m_text.size();
    m_text += tag.stored();
    m_countEnd = m_text.size();
    m_counted = 0;
    m_boundaryLost = false;
    const bool emptied = m_bracketLost && !m_bracketKeeps;
    if (outermost && tag.role() == TagRole::Closes && emptied) m_text.resize(m_bracketAt);
}

/// The count (97) has other meanings too; then no 330 follows it.
void ReferenceRewriter::endBoundary() {
    m_inBoundary = false;
    if (!m_boundaryLost) return;
    std::string count;
    addTag(count, 97, m_counted);
    m_text.replace(m_countAt, m_countEnd - m_countAt, count);
    if (const auto associative = findTag(m_text, 71)) replaceValue(m_text, *associative, "0");
}

}  // namespace host
