// Cloning into another drawing: what comes along, and references turned to what is there.
#include "host/clone/wblock_clone.h"

#include <unordered_map>
#include <unordered_set>

#include "host/clone/deep_clone.h"
#include "host/clone/dimension_blocks.h"
#include "host/store/dictionary_text.h"
#include "host/store/fields.h"
#include "host/store/references.h"
#include "host/store/store.h"
#include "host/tags/tag_edit.h"
#include "host/tags/tags.h"

namespace host {
namespace {

bool isFreeObject(Kind kind) { return kind <= Kind::Xrecord; }

bool isRecord(Kind kind) {
    return kind == Kind::BlockRecord || kind == Kind::LayerRecord || kind == Kind::LinetypeRecord ||
           kind == Kind::OtherRecord;
}

bool isMain(const ObjectBody& body) {
    return isEntityKind(body.kind) && !isSubEntityKind(body.kind);
}

/// Copies objects and what they need; nothing is translated yet.
class Collector {
  public:
    Collector(const Store& from, Store& to, CloneMap& map) : m_from(from), m_to(to), m_map(map) {}

    std::vector<Index> run(const std::vector<const ObjectBody*>& sources, ObjectBody& owner) {
        m_sources.insert(sources.begin(), sources.end());
        std::vector<Index> clones;
        for (const ObjectBody* source : sources) {
            if (m_map.cloneOf(*source) == kNoIndex) copyEntity(*source, owner);
            followAll();
            clones.push_back(m_map.cloneOf(*source));
        }
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
        ObjectBody& made = m_to.duplicate(source, owner);
        m_map.add(source, made);
        m_open.push_back(&source);
        return made;
    }

    void copyEntity(const ObjectBody& source, ObjectBody& owner) {
        ObjectBody& made = copy(source, owner.self);
        m_to.appendChild(owner.self, made);
        setSpaceMarks(made, isPaperSpace(owner));
        for (Index at = m_from.firstLive(source.self); at != kNoIndex;) {
            const ObjectBody& part = m_from.at(at);
            ObjectBody& partMade = copy(part, made.self);
            m_to.appendChild(made.self, partMade);
            setSpaceMarks(partMade, isPaperSpace(owner));
            at = m_from.nextLive(part);
        }
        if (source.sequenceEnd == kNoIndex) return;
        const ObjectBody& end = m_from.at(source.sequenceEnd);
        if (end.erased) return;
        ObjectBody& endMade = copy(end, made.self);
        m_to.setSequenceEnd(made, endMade);
        setSpaceMarks(endMade, isPaperSpace(owner));
    }

    /// Until nothing that was copied has anything left to follow.
    void followAll() {
        while (!m_open.empty()) {
            const ObjectBody* next = m_open.back();
            m_open.pop_back();
            follow(*next);
        }
    }

    void follow(const ObjectBody& source) {
        const bool hardEntries = source.kind == Kind::Dictionary && ownsHard(source.tags());
        TagReader reader(source.tags());
        Tag tag;
        while (reader.next(tag)) {
            if (const char* table = tableNamedBy(source, tag.code)) bringSymbol(table, tag.value);
            const bool owned = isHardOwnerCode(tag.code) || (hardEntries && tag.code == 350);
            if (!owned && !isHardPointerCode(tag.code)) continue;
            const ObjectBody* target = m_from.byHandle(parseHandle(tag.value).value_or(0));
            if (target == nullptr || target->erased || m_map.cloneOf(*target) != kNoIndex) continue;
            if (owned)
                bringOwned(source, *target);
            else
                bringPointedAt(source, *target);
        }
    }

    void bringOwned(const ObjectBody& owner, const ObjectBody& target) {
        if (!isFreeObject(target.kind)) return;
        const bool listed = owner.kind == Kind::Dictionary ||
                            target.handle == extensionDictionaryHandle(owner.tags());
        if (!listed && target.owner != owner.self) return;
        ObjectBody& made = copy(target, m_map.cloneOf(owner));
        m_to.appendChild(m_to.objectsList(), made);
    }

    void bringPointedAt(const ObjectBody& source, const ObjectBody& target) {
        if (isRecord(target.kind)) {
            bringRecord(target);
        } else if (isMain(target)) {
            const Index owner = m_map.cloneOf(source);
            const bool sibling = isMain(source) && source.owner == target.owner;
            if (sibling && m_sources.count(&target) == 0)
                copyEntity(target, m_to.at(m_to.at(owner).owner));
        } else if (isFreeObject(target.kind) && source.kind != Kind::BlockRecord) {
            // (A block names its layout, which is the drawing's and stays.)
            bringNamedObject(target);
        }
    }

    void bringSymbol(const char* table, std::string_view name) {
        const ObjectBody* record = m_from.symbol(table, m_from.decode(name));
        if (record != nullptr && !record->erased && m_map.cloneOf(*record) == kNoIndex)
            bringRecord(*record);
    }

    void bringRecord(const ObjectBody& record) {
        const auto tableName = findTag(m_from.at(record.owner).tags(), 2);
        const Index table = tableName ? m_to.table(tableName->value) : kNoIndex;
        if (table == kNoIndex) return;
        const std::wstring name = symbolName(record);
        const bool isBlock = record.kind == Kind::BlockRecord;
        const bool anonymous = isBlock && name.size() > 1 && name[0] == L'*' &&
                               foldCase(name).find(L"SPACE") == std::wstring::npos;
        const ObjectBody* there = anonymous ? nullptr : m_to.symbol(table, name);
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
        for (Index at = m_from.firstLive(record.self); at != kNoIndex;
             at = m_from.nextLive(m_from.at(at)))
            if (m_map.cloneOf(m_from.at(at)) == kNoIndex) copyEntity(m_from.at(at), made);
    }

    /// The dictionary of the target that stands where one of the source's does; made when it is
    /// missing. Null for one that does not hang under the root, such as an extension dictionary.
    ObjectBody* bringDictionary(const ObjectBody& dictionary, int depth) {
        constexpr int kDeepest = 8;
        if (dictionary.kind != Kind::Dictionary || dictionary.erased || depth > kDeepest)
            return nullptr;
        if (const Index there = m_map.cloneOf(dictionary); there != kNoIndex)
            return &m_to.at(there);
        if (dictionary.self == m_from.rootDictionary()) {
            const Index root = m_to.rootDictionary();
            if (root == kNoIndex) return nullptr;
            m_map.add(dictionary, m_to.at(root));
            return &m_to.at(root);
        }
        return bringEntry(dictionary, depth);
    }

    /// An object of a named dictionary: the target's under the same key, or a copy.
    ObjectBody* bringEntry(const ObjectBody& object, int depth) {
        if (object.owner == kNoIndex) return nullptr;
        const ObjectBody& holder = m_from.at(object.owner);
        DictionaryReader entries(holder.kind == Kind::Dictionary ? holder.tags() : "");
        DictionaryEntry entry;
        while (entries.next(entry) && entry.handle != object.handle) {
        }
        if (entry.handle != object.handle) return nullptr;
        ObjectBody* parent = bringDictionary(holder, depth + 1);
        if (parent == nullptr) return nullptr;
        const std::wstring key = m_from.decode(entry.key);
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

    void bringNamedObject(const ObjectBody& object) { bringEntry(object, 0); }

    const Store& m_from;
    Store& m_to;
    CloneMap& m_map;
    std::unordered_set<const ObjectBody*> m_sources;
    std::vector<const ObjectBody*> m_open;  ///< copied, what they need not yet
    struct NewEntry {
        Index dictionary;
        std::wstring key;
        Index object;
    };
    std::vector<NewEntry> m_entries;
};

/// Turns the references of one clone to what is in its drawing.
class Translator {
  public:
    Translator(const Store& from, const Store& to, const CloneMap& map)
        : m_from(from), m_to(to), m_map(map) {}

    std::string of(const ObjectBody& source, const ObjectBody& clone) {
        TagEdit edit(clone.tags());
        const bool dictionary = source.kind == Kind::Dictionary;
        const bool hatch = trimmed(source.type()) == "HATCH";
        bool inHead = true;
        std::size_t bracket = edit.size(), kept = 0, key = edit.size(), count = edit.size();
        for (std::size_t at = 0; at < edit.size(); ++at) {
            const int code = edit.code(at);
            if (code == 100) inHead = false;
            if (code == 102) {
                const bool opens = !edit.value(at).empty() && edit.value(at)[0] == '{';
                if (!opens && bracket != edit.size() && kept == 0) {
                    edit.remove(bracket);
                    edit.remove(at);
                }
                bracket = opens ? at : edit.size();
                kept = 0;
                continue;
            }
            if (code == 3) key = at;
            if (hatch && code == 97) count = at;
            if (code == 2 && edit.own(at)) rename(edit, at, source);
            const bool owner = inHead && bracket == edit.size() && code == 330;
            if (!isReferenceCode(code) || owner) {
                ++kept;
                continue;
            }
            const Index target = targetOf(edit.value(at));
            if (target != kNoIndex) {
                edit.set(at, std::string_view(formatHandle(m_to.at(target).handle)));
                ++kept;
            } else if (bracket != edit.size() || code == 390 ||
                       (source.kind == Kind::LayerRecord && code != 330)) {
                edit.remove(at);
            } else if (dictionary && !inHead && (code == 350 || code == 360)) {
                edit.remove(at);
                if (key != edit.size()) edit.remove(key);
            } else if (hatch && code == 330 && count != edit.size()) {
                dropBoundary(edit, at, count);
            } else {
                edit.set(at, std::string_view("0"));
            }
        }
        return edit.tags();
    }

  private:
    Index targetOf(std::string_view handle) const {
        const ObjectBody* target = m_from.byHandle(parseHandle(handle).value_or(0));
        return target != nullptr ? m_map.cloneOf(*target) : kNoIndex;
    }

    /// The block that a reference names may have another name here.
    void rename(TagEdit& edit, std::size_t at, const ObjectBody& source) const {
        const char* table = tableNamedBy(source, 2);
        if (table == nullptr) return;
        const ObjectBody* record = m_from.symbol(table, m_to.decode(edit.value(at)));
        const Index clone = record != nullptr ? m_map.cloneOf(*record) : kNoIndex;
        if (clone == kNoIndex) return;
        const std::string name = m_to.encode(symbolName(m_to.at(clone)));
        if (foldCase(m_to.decode(name)) != foldCase(m_to.decode(edit.value(at))))
            edit.set(at, std::string_view(name));
    }

    /// A boundary that stays behind: the path counts one less and the hatch follows no longer.
    static void dropBoundary(TagEdit& edit, std::size_t at, std::size_t count) {
        edit.remove(at);
        int left = 0;
        for (std::size_t next = count + 1; next < edit.size() && edit.code(next) == 330; ++next)
            left += edit.removed(next) ? 0 : 1;
        edit.set(count, left);
        if (const auto associative = edit.find(71)) edit.set(*associative, 0);
    }

    const Store& m_from;
    const Store& m_to;
    const CloneMap& m_map;
};

}  // namespace

std::vector<Index> wblockClone(const std::vector<const ObjectBody*>& sources, Store& to,
                               ObjectBody& owner) {
    if (sources.empty()) return {};
    const Store& from = *sources.front()->store;
    const Index firstNew = to.count() + 1;
    CloneMap map;
    Collector collector(from, to, map);
    const std::vector<Index> clones = collector.run(sources, owner);
    Translator translator(from, to, map);
    for (const auto& [source, index] : map.pairs()) {
        if (index < firstNew) continue;  // it was there before and has its own references
        ObjectBody& clone = to.at(index);
        std::string text = translator.of(*source, clone);
        if (text != clone.tags()) clone.setTags(std::move(text));
    }
    collector.enterObjects();
    return clones;
}

}  // namespace host
