// One drawing's content: slots of objects, handles, sections, symbol names and drawing order.
//
// Constant time: lookup by handle or id, next entity, last entity, symbol by name, append.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/objectarx/object_id.h"
#include "host/store/object_body.h"
#include "host/text/numbers.h"
#include "host/text/text_codec.h"

class AcDbDatabase;

namespace host {

class DataRecords;
class Journal;

/// What a section of the file holds, in the order of the file.
enum class SectionKind { Header, Raw, Tables, Blocks, Entities, Objects, Data };
struct Section {
    std::string name;
    SectionKind kind;
    std::string text;  ///< Header and Raw only: the tags between "2 NAME" and "0 ENDSEC"
};

/// BLOCK and ENDBLK of one block table record.
struct BlockParts {
    Index begin = kNoIndex;
    Index end = kNoIndex;
};

enum class LineEnding { Lf, CrLf };

class Store {
  public:
    Store();
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // --- identity -----------------------------------------------------------------------------
    /// Number of this store in the session, never used twice; part of every id.
    std::uint32_t serial() const { return m_serial; }
    AcDbObjectId idOf(const ObjectBody& body) const { return idOf(body.self); }
    AcDbObjectId idOf(Index index) const {
        if (index == kNoIndex) return {};
        return AcDbObjectId::fromWord(std::uint64_t{m_serial} << 32 | index);
    }
    /// The body that an id names, in whatever open store; null for a null or stale id.
    static ObjectBody* resolve(AcDbObjectId id);
    ObjectBody& at(Index index) const {
        return m_blocks[index >> kBlockBits][index & (kBlockSize - 1)];
    }
    Index count() const { return m_count; }  ///< slots in use; valid indexes are 1 to count()
    /// Object with a handle, erased or not; null when there is none.
    ObjectBody* byHandle(std::uint64_t handle) const;
    /// The same by the handle's text; null for what is none.
    ObjectBody* byHandle(std::string_view handle) const {
        return byHandle(parseHandle(handle).value_or(0));
    }
    /// What $HANDSEED says: above every handle in the drawing, at most one above the highest that
    /// there may be.
    std::uint64_t handleSeed() const { return m_seed; }
    void raiseHandleSeed(std::uint64_t seed);
    /// The handle that the next object gets, which none has: the seed, or where that has come to
    /// its end one inside the widest gap.
    std::uint64_t freeHandle();

    // --- building -----------------------------------------------------------------------------
    /// Copies text into the store's arena; the copy lives as long as the store.
    std::string_view keep(std::string_view text);
    /// Makes a slot for an object whose tags are already in the arena. `handle` may be 0: then
    /// assignMissingHandles gives one later. Null when the handle is taken.
    ObjectBody* create(Kind kind, std::string_view keptText, std::uint64_t handle);
    /// Gives a handle (tag 5, or 105 in DIMSTYLE) to every object that has none, in slot order.
    void assignMissingHandles();
    /// Gives a new object a place in the store: slot, handle, tags 5 and 330, its text re-encoded.
    /// The fresh body stays the caller's. Appends nothing to any list.
    ObjectBody& adopt(const ObjectBody& fresh, Index owner);
    /// A new object of tags, whose text is UTF-8, with a handle and an owner; not appended to any
    /// list.
    ObjectBody& make(Kind kind, std::string_view tags, Index owner);
    /// The same of a copy of an object's tags, in whatever drawing it is.
    ObjectBody& duplicate(const ObjectBody& source, Index owner);

    /// Appends a child to its parent's list: entities to a block record, records to a table,
    /// attributes and vertices to their entity, objects to the objects list.
    void appendChild(Index parent, ObjectBody& child);
    void setSequenceEnd(ObjectBody& parent, ObjectBody& end);
    /// Marks a body erased and takes it out of its list, or the reverse. Single body only.
    void setErased(ObjectBody& body, bool erased);

    // --- drawing order ------------------------------------------------------------------------
    /// First and last live child, the live sibling behind or before (also of an erased body), or
    /// kNoIndex.
    Index firstLive(Index parent) const;
    Index lastLive(Index parent) const;
    Index nextLive(const ObjectBody& body) const;
    Index previousLive(const ObjectBody& body) const;
    /// All live children in their order, for a loop over them; none of kNoIndex. The loop may erase
    /// the child it stands on.
    class Children;
    Children children(Index parent) const;

    // --- structure ----------------------------------------------------------------------------
    std::vector<Section>& sections() { return m_sections; }
    const std::vector<Section>& sections() const { return m_sections; }
    /// The section of a kind; made (empty, in its usual place) when the drawing has none.
    Section& section(SectionKind kind);
    /// Tables in file order: each a body whose children are its records.
    std::vector<Index>& tables() { return m_tables; }
    const std::vector<Index>& tables() const { return m_tables; }
    /// Table by its name ("LAYER"), or kNoIndex.
    Index table(std::string_view name) const;
    /// Parent of everything in the OBJECTS section, in file order; has no tags of its own.
    Index objectsList() const { return m_objectsList; }
    /// Root dictionary, or kNoIndex.
    Index rootDictionary() const;
    /// Block records in the order of the BLOCKS section, with their BLOCK and ENDBLK.
    std::vector<Index>& blockOrder() { return m_blockOrder; }
    const std::vector<Index>& blockOrder() const { return m_blockOrder; }
    BlockParts& blockParts(Index blockRecord) { return m_blockParts[blockRecord]; }
    BlockParts blockParts(Index blockRecord) const {
        const auto found = m_blockParts.find(blockRecord);
        return found != m_blockParts.end() ? found->second : BlockParts();
    }
    Index modelSpace() const;
    /// Record named "*Paper_Space": the active layout's.
    Index paperSpace() const;
    /// True with TILEMODE on; a drawing that does not say has it on.
    bool modelTabCurrent() const;
    /// Model space with TILEMODE on or CVPORT other than 1, else the active paper space.
    Index currentSpace() const;

    // --- symbol names -------------------------------------------------------------------------
    /// Record of a table by name without regard to case; live ones win over erased ones.
    ObjectBody* symbol(Index table, std::wstring_view name) const;
    ObjectBody* symbol(std::string_view tableName, std::wstring_view name) const;
    /// The same, but null for an erased one.
    template <typename Table>
    ObjectBody* liveSymbol(const Table& table, std::wstring_view name) const {
        ObjectBody* const record = symbol(table, name);
        return record != nullptr && !record->erased ? record : nullptr;
    }
    /// Notes the name of a record that was added to a table or renamed.
    void indexSymbol(Index table, const ObjectBody& record, std::wstring_view name);

    /// True when the entity's layer is locked. Constant time while no layer is.
    bool onLockedLayer(const ObjectBody& entity) const;

    // --- header -------------------------------------------------------------------------------
    /// Value of the first tag of a header variable ("$TILEMODE"), or nothing.
    std::optional<std::string_view> headerValue(std::string_view name) const;
    /// Sets that value; adds the variable when it is missing.
    void setHeaderValue(std::string_view name, int code, std::string_view value);
    /// Version of the drawing, for example "AC1027".
    std::string version() const;

    /// What the commands of this drawing changed, for undo and redo.
    Journal& journal() { return *m_journal; }
    /// The section ACDSDATA.
    DataRecords& dataRecords() const { return *m_dataRecords; }

    const Encoding& encoding() const { return m_encoding; }
    void setEncoding(Encoding encoding) { m_encoding = std::move(encoding); }
    LineEnding lineEnding() const { return m_lineEnding; }
    void setLineEnding(LineEnding ending) { m_lineEnding = ending; }
    std::wstring decode(std::string_view bytes) const { return decodeText(bytes, m_encoding); }
    std::string encode(std::wstring_view text) const { return encodeText(text, m_encoding); }

    /// Identification of the current viewport: 1 is the paper-space one of a layout.
    int currentViewport = 2;
    /// Height of the view in drawing units where the drawing keeps none; 0 until it is worked out.
    mutable double assumedViewHeight = 0;
    mutable bool framesTold = false;  ///< that parts of the drawing are taken as frames
    /// The database object that holds this store.
    AcDbDatabase* database = nullptr;
    /// How many things loading had to supply, which the file lacks: damage of the file.
    std::size_t supplied = 0;
    /// Counts changes of content, for "modified since saved" and caches.
    std::uint64_t revision = 0;

  private:
    friend struct ObjectBody;
    friend class Journal;
    struct Arena;
    struct HandleIndex;
    static constexpr unsigned kBlockBits = 10;
    static constexpr Index kBlockSize = 1u << kBlockBits;

    ObjectBody& newSlot();
    ObjectBody& make(Kind kind, std::string_view tags, const Encoding& from, Index owner);
    std::uint64_t middleOfWidestGap() const;
    void giveHandle(ObjectBody& body, std::uint64_t handle);
    /// The body whose list of children holds this one, or kNoIndex.
    Index listParent(const ObjectBody& body) const;
    /// Forgets what was derived from records of a kind.
    void recordsChanged(Kind kind) const;
    void findSpaces() const;
    bool isMember(const ObjectBody& body, const ObjectBody& list) const;
    bool staysLinked(const ObjectBody& body) const;
    bool isLinked(const ObjectBody& body) const { return !body.erased || staysLinked(body); }
    Index liveBefore(const ObjectBody& body) const;
    void link(ObjectBody& body);
    void unlink(ObjectBody& body);

    std::uint32_t m_serial;
    Index m_count = 0;
    std::uint64_t m_seed = 1;
    std::uint64_t m_gap = 0;  ///< where free handles are looked for at the seed's end
    std::vector<std::unique_ptr<ObjectBody[]>> m_blocks;
    std::unique_ptr<Arena> m_arena;
    std::unique_ptr<HandleIndex> m_handles;
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<DataRecords> m_dataRecords;
    std::vector<Section> m_sections;
    std::vector<Index> m_tables;
    std::vector<Index> m_blockOrder;
    Index m_objectsList = kNoIndex;
    std::unordered_map<Index, BlockParts> m_blockParts;
    /// Records by folded name, for each table.
    std::unordered_map<Index, std::unordered_map<std::wstring, std::vector<Index>>> m_symbols;
    mutable std::unordered_map<std::string, Index> m_tableNames;  ///< filled when it is asked for
    mutable std::size_t m_tablesNamed = 0;                        ///< so many of m_tables
    Encoding m_encoding;
    LineEnding m_lineEnding = LineEnding::Lf;
    mutable bool m_spacesKnown = false;
    mutable Index m_modelSpace = kNoIndex;
    mutable Index m_paperSpace = kNoIndex;
    mutable bool m_lockedLayersKnown = false;
    mutable std::unordered_set<std::wstring> m_lockedLayers;  ///< folded names
};

class Store::Children {
  public:
    class Iterator {
      public:
        Iterator(const Store& store, Index at) : m_store(store), m_at(at) {}
        ObjectBody& operator*() const { return m_store.at(m_at); }
        void operator++() { m_at = m_store.nextLive(**this); }
        bool operator!=(const Iterator& other) const { return m_at != other.m_at; }

      private:
        const Store& m_store;
        Index m_at;
    };
    Children(const Store& store, Index parent) : m_store(store), m_parent(parent) {}
    Iterator begin() const { return {m_store, m_store.firstLive(m_parent)}; }
    Iterator end() const { return {m_store, kNoIndex}; }

  private:
    const Store& m_store;
    Index m_parent;
};

inline Store::Children Store::children(Index parent) const { return {*this, parent}; }

/// Name of a symbol table record or block (tag 2), decoded.
std::wstring symbolName(const ObjectBody& record);
/// Layer name of an entity, decoded.
std::wstring layerName(const ObjectBody& entity);

}  // namespace host
