// Deep cloning: copies with all they own, references among them turned to the copies.
#include "host/clone/deep_clone.h"

#include <algorithm>

#include "host/store/fields.h"
#include "host/store/references.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// True for what stands in the OBJECTS section; only that can be owned through a handle.
bool isFreeObject(Kind kind) {
    return kind == Kind::Object || kind == Kind::Dictionary || kind == Kind::Xrecord;
}

/// Copies one object after the other with what it owns, an owner before what is its own.
class Cloner {
  public:
    Cloner(Store& store, CloneMap& map) : m_store(store), m_map(map) {}

    void clone(const ObjectBody& source, ObjectBody& owner) {
        ObjectBody& primary = copy(source, owner.self);
        m_store.appendChild(owner.self, primary);
        m_movedSpace = source.owner != owner.self;
        m_paperSpace = m_movedSpace && isPaperSpace(owner);
        if (m_movedSpace) setSpaceMarks(primary, m_paperSpace);
        m_open.push_back(&source);
        for (std::size_t at = 0; at < m_open.size(); ++at)
            copyOwned(*m_open[at]);
        m_open.clear();
    }

  private:
    ObjectBody& copy(const ObjectBody& source, Index owner) {
        ObjectBody& made = m_store.duplicate(source, owner);
        m_map.add(source, made);
        return made;
    }

    ObjectBody& copyPart(const ObjectBody& part, Index owner) {
        ObjectBody& made = copy(part, owner);
        if (m_movedSpace) setSpaceMarks(made, m_paperSpace);
        m_open.push_back(&part);
        return made;
    }

    void copyOwned(const ObjectBody& source) {
        const Index owner = m_map.cloneOf(source);
        if (isEntityKind(source.kind)) copyParts(source, m_store.at(owner));
        TagReader reader(source.tags());
        Tag tag;
        while (reader.next(tag)) {
            if (!isOwnerCode(tag.code)) continue;
            const ObjectBody* owned = ownedBy(source, tag.value);
            if (owned == nullptr) continue;
            m_store.appendChild(m_store.objectsList(), copy(*owned, owner));
            m_open.push_back(owned);
        }
    }

    void copyParts(const ObjectBody& source, ObjectBody& target) {
        for (Index at = m_store.firstLive(source.self); at != kNoIndex;) {
            const ObjectBody& part = m_store.at(at);
            m_store.appendChild(target.self, copyPart(part, target.self));
            at = m_store.nextLive(part);
        }
        if (source.sequenceEnd == kNoIndex) return;
        const ObjectBody& end = m_store.at(source.sequenceEnd);
        if (!end.erased) m_store.setSequenceEnd(target, copyPart(end, target.self));
    }

    /// The object that an owner's tag names, when it is to be copied with the owner.
    const ObjectBody* ownedBy(const ObjectBody& owner, std::string_view handle) const {
        const ObjectBody* owned = m_store.byHandle(parseHandle(handle).value_or(0));
        if (owned == nullptr || owned->erased || !isFreeObject(owned->kind)) return nullptr;
        if (m_map.cloneOf(*owned) != kNoIndex) return nullptr;
        // What a dictionary lists is its own, whatever the entry itself says.
        const bool listed = owner.kind == Kind::Dictionary ||
                            owned->handle == extensionDictionaryHandle(owner.tags());
        return listed || owned->owner == owner.self ? owned : nullptr;
    }

    Store& m_store;
    CloneMap& m_map;
    std::vector<const ObjectBody*> m_open;  ///< copied, what they own not yet
    bool m_movedSpace = false;
    bool m_paperSpace = false;
};

/// Rewrites the references in the tags of one clone.
class Translation {
  public:
    Translation(const Store& store, const CloneMap& map) : m_store(store), m_map(map) {}

    /// The text for a clone; borrowed until the next call.
    const std::string& of(const ObjectBody& clone) {
        m_text.clear();
        m_inHead = true;
        m_bracket = Bracket::None;
        m_keyAt = std::string::npos;
        m_isDictionary = clone.kind == Kind::Dictionary;
        TagReader reader(clone.tags());
        Tag tag;
        while (reader.next(tag))
            add(tag, clone.tags().substr(reader.begin(), reader.end() - reader.begin()));
        return m_text;
    }

  private:
    /// Links is a bracket that only other objects' knowledge justifies: reactors, dictionary.
    enum class Bracket { None, Links, Other };

    /// Adds a tag, whose text as it stands is `stored`, as the clone has to have it.
    void add(const Tag& tag, std::string_view stored) {
        if (tag.code == 100) m_inHead = false;
        if (tag.code == 102 && m_inHead) {
            addBracket(tag);
        } else if (isReferenceCode(tag.code) && !isOwner(tag)) {
            addReference(tag);
        } else {
            if (tag.code == 3) m_keyAt = m_text.size();
            m_text += stored;
        }
    }

    void addBracket(const Tag& tag) {
        if (!tag.value.empty() && tag.value[0] == '{') {
            const bool links = tag.value == "{ACAD_REACTORS" || tag.value == "{ACAD_XDICTIONARY";
            m_bracket = links ? Bracket::Links : Bracket::Other;
            m_bracketAt = m_text.size();
            addTag(m_text, tag.code, tag.value);
            m_bracketBegin = m_text.size();
            return;
        }
        const bool isEmpty = m_bracket == Bracket::Links && m_text.size() == m_bracketBegin;
        if (isEmpty) m_text.resize(m_bracketAt);
        if (!isEmpty) addTag(m_text, tag.code, tag.value);
        m_bracket = Bracket::None;
    }

    void addReference(const Tag& tag) {
        const ObjectBody* target = m_store.byHandle(parseHandle(tag.value).value_or(0));
        const Index clone = target != nullptr ? m_map.cloneOf(*target) : kNoIndex;
        if (clone != kNoIndex) {
            addHandleTag(m_text, tag.code, m_store.at(clone).handle);
            m_keyAt = std::string::npos;
        } else if (m_isDictionary && !m_inHead && isOwnerCode(tag.code)) {
            // An entry that was not copied stays with the source, key and all.
            m_text.resize(std::min(m_keyAt, m_text.size()));
            m_keyAt = std::string::npos;
        } else if (m_bracket != Bracket::Links) {
            addTag(m_text, tag.code, tag.value);
        }
    }

    bool isOwner(const Tag& tag) const {
        return m_inHead && m_bracket == Bracket::None && tag.code == 330;
    }

    const Store& m_store;
    const CloneMap& m_map;
    std::string m_text;
    bool m_inHead = true;
    bool m_isDictionary = false;
    Bracket m_bracket = Bracket::None;
    std::size_t m_bracketAt = 0;
    std::size_t m_bracketBegin = 0;
    std::size_t m_keyAt = std::string::npos;  ///< where the key of the next entry stands
};

}  // namespace

void CloneMap::add(const ObjectBody& source, const ObjectBody& clone) {
    m_pairs.push_back({&source, clone.self});
    if (2 * m_pairs.size() <= m_places.size()) {
        insert(static_cast<std::uint32_t>(m_pairs.size()));
        return;
    }
    m_places.assign(std::max<std::size_t>(64, m_places.size() * 2), 0);
    for (std::uint32_t number = 1; number <= m_pairs.size(); ++number)
        insert(number);
}

Index CloneMap::cloneOf(const ObjectBody& source) const {
    if (m_places.empty()) return kNoIndex;
    for (std::size_t place = firstPlace(source); m_places[place] != 0;
         place = (place + 1) & (m_places.size() - 1)) {
        const Pair& pair = m_pairs[m_places[place] - 1];
        if (pair.source == &source) return pair.clone;
    }
    return kNoIndex;
}

std::size_t CloneMap::firstPlace(const ObjectBody& source) const {
    return source.self * std::size_t{0x9E3779B1u} >> 8 & (m_places.size() - 1);
}

void CloneMap::insert(std::uint32_t number) {
    std::size_t place = firstPlace(*m_pairs[number - 1].source);
    while (m_places[place] != 0)
        place = (place + 1) & (m_places.size() - 1);
    m_places[place] = number;
}

void copyWithOwned(Store& store, const std::vector<ObjectBody*>& sources, ObjectBody& owner,
                   CloneMap& map) {
    Cloner cloner(store, map);
    for (const ObjectBody* source : sources) {
        if (map.cloneOf(*source) == kNoIndex) cloner.clone(*source, owner);
    }
}

void translateReferences(Store& store, const CloneMap& map) {
    Translation translation(store, map);
    for (const CloneMap::Pair& pair : map.pairs()) {
        ObjectBody& clone = store.at(pair.clone);
        const std::string& text = translation.of(clone);
        if (text != clone.tags()) clone.setTags(text);
    }
}

void deepClone(Store& store, const std::vector<ObjectBody*>& sources, ObjectBody& owner,
               CloneMap& map) {
    copyWithOwned(store, sources, owner, map);
    translateReferences(store, map);
}

}  // namespace host
