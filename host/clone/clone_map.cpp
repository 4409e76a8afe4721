// The steps of cloning: copying bodies and entities, translating references.
#include "host/clone/clone_map.h"

#include <algorithm>

#include "host/content/fields.h"
#include "host/store/body_text.h"
#include "host/store/data_records.h"
#include "host/store/store.h"

namespace host {

void CloneMap::add(const ObjectBody& source, const ObjectBody& clone) {
    m_pairs.push_back({&source, clone.self});
    std::size_t number = m_pairs.size();
    if (2 * number > m_places.size()) {
        m_places.assign(std::max<std::size_t>(64, m_places.size() * 2), 0);
        number = 1;
    }
    for (; number <= m_pairs.size(); ++number)
        m_places[placeOf(*m_pairs[number - 1].source)] = static_cast<std::uint32_t>(number);
}

Index CloneMap::cloneOf(const ObjectBody& source) const {
    const std::uint32_t number = m_places.empty() ? 0 : m_places[placeOf(source)];
    return number != 0 ? m_pairs[number - 1].clone : kNoIndex;
}

std::size_t CloneMap::placeOf(const ObjectBody& source) const {
    const std::size_t last = m_places.size() - 1;
    std::size_t place = source.self * std::size_t{0x9E3779B1u} >> 8 & last;
    while (m_places[place] != 0 && m_pairs[m_places[place] - 1].source != &source)
        place = (place + 1) & last;
    return place;
}

ObjectBody& cloneBody(const ObjectBody& source, Store& to, Index owner, CloneMap& map) {
    ObjectBody& made = to.duplicate(source, owner);
    to.dataRecords().copy(source, made.self);
    map.add(source, made);
    return made;
}

void cloneEntity(const ObjectBody& source, Store& to, ObjectBody& owner, CloneMap& map) {
    const Store& from = *source.store;
    const bool moves = &from != &to || source.owner != owner.self;
    const bool toPaper = moves && isPaperSpace(owner);
    const auto clonePart = [&](const ObjectBody& part, Index holder) -> ObjectBody& {
        ObjectBody& made = cloneBody(part, to, holder, map);
        if (moves) setSpaceMarks(made, toPaper);
        return made;
    };
    ObjectBody& made = clonePart(source, owner.self);
    to.appendChild(owner.self, made);
    for (const ObjectBody& part : from.children(source.self))
        to.appendChild(made.self, clonePart(part, made.self));
    const Index end = source.sequenceEnd;
    if (end != kNoIndex && !from.at(end).erased)
        to.setSequenceEnd(made, clonePart(from.at(end), made.self));
}

bool goesAlong(const ObjectBody& owner, const ObjectBody* object, const CloneMap& map) {
    if (object == nullptr || object->erased || !isObjectKind(object->kind)) return false;
    if (map.cloneOf(*object) != kNoIndex) return false;
    return owner.kind == Kind::Dictionary || object->owner == owner.self ||
           object->handle == extensionDictionaryHandle(owner.tags());
}

void translateClones(const Store& from, Store& to, const CloneMap& map, Index firstNew,
                     FateOfOthers others) {
    ReferenceRewriter rewriter(
        [&](const ObjectBody& clone, ReferencePlace place, const Tag& tag) -> ReferenceFate {
            const ObjectBody* target = from.byHandle(tag.value);
            const Index found = target != nullptr ? map.cloneOf(*target) : kNoIndex;
            if (found == kNoIndex) return others(clone, place, tag.code);
            return {ReferenceFate::Turn, to.at(found).handle};
        });
    for (const CloneMap::Pair& pair : map.pairs()) {
        if (pair.clone < firstNew) continue;
        ObjectBody& clone = to.at(pair.clone);
        const std::string& text = rewriter.rewritten(clone);
        if (text != clone.tags()) clone.setTags(text);
    }
}

}  // namespace host
