// Cloning into another drawing: what comes along, and references turned to what is there.
#include "host/clone/wblock_clone.h"

#include "host/clone/back_pointers.h"
#include "host/clone/clone_map.h"
#include "host/clone/dimension_blocks.h"
#include "host/clone/drawing_lists.h"
#include "host/content/dictionary_text.h"
#include "host/content/references.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

/// Copies objects and what they need; nothing is translated yet.
class Collector {
  public:
    Collector(const Store& from, Store& to, CloneMap& map) : m_from(from), m_to(to), m_map(map) {}

    std::vector<Index> run(const std::vector<const ObjectBody*>& sources, ObjectBody& owner) {
        for (const ObjectBody* source : sources)
            if (m_map.cloneOf(*source) == kNoIndex) copyEntity(*source, owner);
        // Behind all of them what they reach, until nothing copied has anything left to follow.
        for (std::size_t next = 0; next < m_open.size(); ++next)
            follow(*m_open[next]);
        std::vector<Index> clones;
        for (const ObjectBody* source : sources)
            clones.push_back(m_map.cloneOf(*source));
        return clones;
    }

    /// Enters copied objects into their dictionaries. Behind the translation: until then what a
    /// copied dictionary names are objects of the source.
    void enterObjects() {
        for (const NewEntry& entry : m_entries)
            addEntry(m_to.at(entry.dictionary), entry.key, m_to.at(entry.object).handle);
    }

  private:
    ObjectBody& copy(const ObjectBody& source, Index owner) {
        m_open.push_back(&source);
        return cloneBody(source, m_to, owner, m_map);
    }

    void copyEntity(const ObjectBody& source, ObjectBody& owner) {
        std::size_t copied = m_map.pairs().size();
        cloneEntity(source, m_to, owner, m_map);
        for (; copied < m_map.pairs().size(); ++copied)
            m_open.push_back(m_map.pairs()[copied].source);
    }

    void follow(const ObjectBody& source) {
        if (source.type() == "SHAPE") bringShapeFiles();
        const bool hardEntries = source.kind == Kind::Dictionary && ownsHard(source.tags());
        TagWalk tag(source.tags());
        while (tag.next()) {
            if (const char* table = tableNamedBy(source, tag)) bringSymbol(table, tag.value());
            const TagType type = tagTypeOf(tag.code());
            const bool owned =
                type == TagType::HardOwner || (hardEntries && type == TagType::SoftOwner);
            constexpr int kExtended = 1005;  // a dimension's own text style, arrows and linetypes
            if (!owned && type != TagType::HardPointer && tag.code() != kExtended) continue;
            const ObjectBody* target = m_from.byHandle(tag.value());
            if (tag.code() == kExtended && (target == nullptr || !isRecordKind(target->kind)))
                continue;
            if (owned && goesAlong(source, target, m_map)) {
                m_to.appendChild(m_to.objectsList(), copy(*target, m_map.cloneOf(source)));
            } else if (!owned && target != nullptr && !target->erased &&
                       m_map.cloneOf(*target) == kNoIndex) {
                bringPointedAt(source, *target);
            }
        }
    }

    void bringPointedAt(const ObjectBody& source, const ObjectBody& target) {
        if (isRecordKind(target.kind)) {
            bringRecord(target);
        } else if (isMainEntity(target)) {
            const Index owner = m_map.cloneOf(source);
            const bool sibling = isMainEntity(source) && source.owner == target.owner;
            if (sibling) copyEntity(target, m_to.at(m_to.at(owner).owner));
        } else if (isObjectKind(target.kind) && source.kind != Kind::BlockRecord) {
            // (A block names its layout, which is the drawing's and stays.)
            bringEntry(target, 0);
        }
    }

    /// A shape does not say which of the loaded files has it.
    void bringShapeFiles() {
        for (const ObjectBody& style : m_from.children(m_from.table("STYLE")))
            if (symbolName(style).empty() && m_map.cloneOf(style) == kNoIndex) bringRecord(style);
    }

    /// The record of the target that stands for one of the source. A shape file has no name: there
    /// the file (3) tells.
    ObjectBody* counterpart(const ObjectBody& record, Index table, const std::wstring& name) const {
        if (!name.empty()) return m_to.symbol(table, name);
        const auto fileOf = [](const ObjectBody& body) {
            return foldCase(body.decode(rawTag(body.tags(), 3)));
        };
        for (ObjectBody& each : m_to.children(table))
            if (symbolName(each).empty() && fileOf(each) == fileOf(record)) return &each;
        return nullptr;
    }

    void bringSymbol(const char* table, std::string_view name) {
        const ObjectBody* record = m_from.liveSymbol(table, m_from.decode(name));
        if (record != nullptr && m_map.cloneOf(*record) == kNoIndex) bringRecord(*record);
    }

    void bringRecord(const ObjectBody& record) {
        const Index table = m_to.table(rawTag(m_from.at(record.owner).tags(), 2));
        if (table == kNoIndex) return;
        const std::wstring name = symbolName(record);
        const bool isBlock = record.kind == Kind::BlockRecord;
        const bool anonymous = isBlock && name.size() > 1 && name[0] == L'*' &&
                               foldCase(name).find(L"SPACE") == std::wstring::npos;
        const ObjectBody* there = anonymous ? nullptr : counterpart(record, table, name);
        if (there != nullptr && !there->erased) return m_map.add(record, *there);
        if (anonymous) {
            ObjectBody& made = makeAnonymousBlock(m_to, name[1], record);
            m_map.add(record, made);
            return copyContents(record, made);
        }
        ObjectBody& made = copy(record, table);
        m_to.appendChild(table, made);
        m_to.indexSymbol(table, made, name);
        if (!isBlock) return;
        const BlockParts parts = m_from.blockParts(record.self);
        if (parts.begin == kNoIndex || parts.end == kNoIndex) return;
        BlockParts copied;
        copied.begin = copy(m_from.at(parts.begin), made.self).self;
        copied.end = copy(m_from.at(parts.end), made.self).self;
        m_to.blockParts(made.self) = copied;
        m_to.blockOrder().push_back(made.self);
        copyContents(record, made);
    }

    void copyContents(const ObjectBody& record, ObjectBody& made) {
        for (const ObjectBody& entity : m_from.children(record.self))
            if (m_map.cloneOf(entity) == kNoIndex) copyEntity(entity, made);
    }

    /// What the target has where a named object or dictionary of the source stands: its own under
    /// the same key, or a copy. Null for what does not hang under the root, such as an extension
    /// dictionary.
    ObjectBody* bringEntry(const ObjectBody& object, int depth) {
        constexpr int kDeepest = 8;
        if (const Index there = m_map.cloneOf(object); there != kNoIndex) return &m_to.at(there);
        if (object.self == m_from.rootDictionary() && m_to.rootDictionary() != kNoIndex) {
            ObjectBody& root = m_to.at(m_to.rootDictionary());
            m_map.add(object, root);
            return &root;
        }
        if (object.owner == kNoIndex || object.erased || depth > kDeepest) return nullptr;
        const ObjectBody& holder = m_from.at(object.owner);
        if (holder.kind != Kind::Dictionary) return nullptr;
        const auto entry = findEntry(holder, object.handle);
        if (!entry) return nullptr;
        ObjectBody* parent = bringEntry(holder, depth + 1);
        if (parent == nullptr) return nullptr;
        const std::wstring key = m_from.decode(entry->key);
        if (const auto there = findEntry(*parent, key)) {
            ObjectBody* found = m_to.byHandle(there->handle);
            if (found == nullptr || found->erased) return nullptr;
            m_map.add(object, *found);
            return found;
        }
        ObjectBody& made = copy(object, parent->self);
        m_to.appendChild(m_to.objectsList(), made);
        // A dictionary begins empty and takes only what is needed.
        if (object.kind == Kind::Dictionary) made.setTags(withoutEntries(made.tags()));
        m_entries.push_back({parent->self, key, made.self});
        return &made;
    }

    static std::string withoutEntries(std::string_view text) {
        std::string left;
        std::size_t at = 0;
        DictionaryReader entries(text);
        for (DictionaryEntry entry; entries.next(entry); at = entry.end)
            left += text.substr(at, entry.begin - at);
        return left += text.substr(at);
    }

    const Store& m_from;
    Store& m_to;
    CloneMap& m_map;
    std::vector<const ObjectBody*> m_open;  ///< all that was copied, in this order
    struct NewEntry {
        Index dictionary;
        std::wstring key;
        Index object;
    };
    std::vector<NewEntry> m_entries;
};

/// What stays behind is dropped from lists and brackets, and where a 0 would be none: plot styles,
/// and all that layers name.
ReferenceFate fateOfLeftBehind(const ObjectBody& clone, ReferencePlace place, int code) {
    const bool drops = place != ReferencePlace::Plain || code == 390 ||
                       (clone.kind == Kind::LayerRecord && code != 330);
    return {drops ? ReferenceFate::Drop : ReferenceFate::Turn, 0};
}

/// The block that a clone names may have another name in its drawing.
void renameBlock(const Store& from, const Store& to, const CloneMap& map, ObjectBody& clone) {
    TagWalk tag(clone.tags());
    while (tag.nextOwn() && tag.code() != 2) {
    }
    if (tag.code() != 2 || tableNamedBy(clone, tag) == nullptr) return;
    const std::wstring former = to.decode(tag.value());
    const ObjectBody* record = from.symbol("BLOCK_RECORD", former);
    const Index made = record != nullptr ? map.cloneOf(*record) : kNoIndex;
    if (made == kNoIndex || foldCase(symbolName(to.at(made))) == foldCase(former)) return;
    std::string text(clone.tags());
    replaceValue(text, tag.place(), to.encode(symbolName(to.at(made))));
    clone.setTags(text);
}

}  // namespace

std::vector<Index> wblockClone(const std::vector<const ObjectBody*>& sources, Store& to,
                               ObjectBody& owner) {
    if (sources.empty()) return {};
    const Store& from = *sources.front()->store;
    const Index firstNew = to.count() + 1;
    CloneMap map;
    Collector collector(from, to, map);
    const std::vector<Index> clones = collector.run(sources, owner);
    for (const CloneMap::Pair& pair : map.pairs())
        if (pair.clone >= firstNew) renameBlock(from, to, map, to.at(pair.clone));
    translateClones(from, to, map, firstNew, fateOfLeftBehind);
    collector.enterObjects();
    enterInDefinitions(from, to, map, firstNew);
    enterInListings(from, to, map);
    bringClasses(from, to, firstNew);
    return clones;
}

}  // namespace host
