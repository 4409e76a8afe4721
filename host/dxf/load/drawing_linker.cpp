// Second step of loading: handles, names, blocks, spaces and owners.
#include "host/dxf/load/drawing_linker.h"

#include <algorithm>

#include "host/content/dictionary_text.h"
#include "host/dxf/load/structure_repair.h"
#include "host/store/body_text.h"
#include "host/store/data_records.h"
#include "host/tags/tags.h"

namespace host {

bool DrawingLinker::link() {
    assignHandles();
    if (!indexSymbols()) return false;
    supplyTables(m_store);
    if (!linkBlocks()) return false;
    supplySpaceBlocks(m_store);
    placeEntities();
    linkObjects();
    adoptDictionaryEntries();
    breakOwnerCycles();
    supplyObjects(m_store);
    updateHandleSeed();
    return true;
}

void DrawingLinker::assignHandles() {
    const auto value = m_store.headerValue("$HANDSEED");
    const std::uint64_t seed = value ? parseHandle(*value).value_or(0) : 0;
    const bool believed = seed <= std::max(kHighestHandle, m_store.handleSeed());
    if (believed && seed >= m_store.handleSeed()) m_seedRead = seed;
    if (believed) m_store.raiseHandleSeed(seed);
    // What is supplied must not become the owner that an object names and that is not there.
    for (const ObjectFacts& facts : m_parts.facts) {
        if (facts.owner < kHighestHandle) m_store.raiseHandleSeed(facts.owner + 1);
    }
    m_slotsRead = m_store.count();
    for (Index index = 1; index <= m_slotsRead; ++index) {
        const ObjectBody& body = m_store.at(index);
        if (body.handle == 0 && body.size > 0) ++m_handlesMissing;
    }
    if (m_handlesMissing > 0) m_store.assignMissingHandles();
    readDataRecords();
}

void DrawingLinker::readDataRecords() {
    for (Section& section : m_store.sections()) {
        if (section.kind != SectionKind::Data) continue;
        m_store.dataRecords().read(section.text);
        section.text = {};
    }
    // Nor must what is new get the record of an object that is not there.
    for (const DataPiece& piece : m_store.dataRecords().pieces()) {
        const std::uint64_t handle = parseHandle(piece.handle).value_or(0);
        if (piece.owner == kNoIndex && handle < kHighestHandle) m_store.raiseHandleSeed(handle + 1);
    }
}

/// A sound $HANDSEED stays sound when handles were given to what was missing. One that was not is
/// left for the check to see; saving corrects it.
void DrawingLinker::updateHandleSeed() {
    if (m_seedRead == 0 || m_seedRead == m_store.handleSeed()) return;
    m_store.setHeaderValue("$HANDSEED", 5, formatHandle(m_store.handleSeed()));
}

std::vector<Finding> DrawingLinker::supplied() const {
    std::vector<Finding> findings;
    if (m_handlesMissing > 0) {
        findings.push_back(
            {Severity::Note, 0,
             std::to_string(m_handlesMissing) + " objects had no handle (5) and got one"});
    }
    for (Index index = m_slotsRead + 1; index <= m_store.count(); ++index) {
        const ObjectBody& body = m_store.at(index);
        const std::wstring name = symbolName(body);
        const std::wstring text = fromUtf8(body.type()) +
                                  (name.empty() ? L"" : L" \"" + name + L"\"") +
                                  L" was missing and was supplied";
        findings.push_back({Severity::Error, body.handle, oneLine(text)});
    }
    return findings;
}

/// Notes the names of all records; the first of several that share a name counts.
bool DrawingLinker::indexSymbols() {
    for (const Index table : m_store.tables()) {
        const bool blocks = m_store.at(table).kind == Kind::BlockTable;
        for (const ObjectBody& record : m_store.children(table)) {
            const std::wstring name = symbolName(record);
            const ObjectBody* const first = m_store.symbol(table, name);
            if (first == nullptr) {
                m_store.indexSymbol(table, record, name);
            } else if (blocks) {
                return m_stream.fail(static_cast<long>(m_parts.of(record.self).line),
                                     "block record " + toUtf8(name) + " was defined in line " +
                                         std::to_string(m_parts.of(first->self).line) +
                                         " already; rename one of them");
            }
        }
    }
    return true;
}

bool DrawingLinker::linkBlocks() {
    for (const LoadedBlock& block : m_parts.blocks) {
        const std::wstring name = m_store.decode(block.name);
        const ObjectBody& record = supplyBlockRecord(m_store, block.name);
        BlockParts& parts = m_store.blockParts(record.self);
        if (parts.begin != kNoIndex) {
            return m_stream.fail(static_cast<long>(m_parts.of(block.begin).line),
                                 "block " + toUtf8(name) + " was defined in line " +
                                     std::to_string(m_parts.of(parts.begin).line) +
                                     " already; rename one of them");
        }
        parts = {block.begin, block.end};
        m_store.at(block.begin).owner = record.self;
        m_store.at(block.end).owner = record.self;
        m_store.blockOrder().push_back(record.self);
    }
    return true;
}

/// Fills the blocks and spaces. A list is in the order of its indexes, so ranges go in file order.
void DrawingLinker::placeEntities() {
    m_modelSpace = m_store.modelSpace();
    m_paperSpace = m_store.paperSpace();
    const SlotRange& entities = m_parts.entities;
    const bool entitiesFirst =
        !m_parts.blocks.empty() && entities.first < m_parts.blocks.front().contents.first;
    if (entitiesFirst) placeRange(entities, kNoIndex);
    for (const LoadedBlock& block : m_parts.blocks) {
        placeRange(block.contents, m_store.at(block.begin).owner);
    }
    if (!entitiesFirst) placeRange(entities, kNoIndex);
}

/// Appends the entities of a range to a block, or each to its space when there is none.
void DrawingLinker::placeRange(const SlotRange& range, Index block) {
    for (Index index = range.first; index < range.end; ++index) {
        ObjectBody& body = m_store.at(index);
        if (body.owner != kNoIndex) continue;  // a sub-entity
        m_store.appendChild(block != kNoIndex ? block : spaceOf(index), body);
        // Saved in the section of both spaces, it would go to the one that it names.
        const bool inSpaceBlock =
            block != kNoIndex && (block == m_modelSpace || block == m_paperSpace);
        if (inSpaceBlock && spaceOf(index) != block) {
            body.setTags(withIdentity(body.tags(), body.handle, m_store.at(block).handle));
        }
    }
}

/// The space that an entity names: by its owner when that is one, else by tag 67 or 410.
Index DrawingLinker::spaceOf(Index entity) {
    const ObjectFacts& facts = m_parts.of(entity);
    if (facts.owner == m_store.at(m_modelSpace).handle) return m_modelSpace;
    if (facts.owner == m_store.at(m_paperSpace).handle) return m_paperSpace;
    return facts.hasSpace && facts.inPaper ? m_paperSpace : m_modelSpace;
}

void DrawingLinker::linkObjects() {
    const SlotRange& objects = m_parts.objects;
    for (Index index = objects.first; index < objects.end; ++index) {
        ObjectBody& body = m_store.at(index);
        m_store.appendChild(m_store.objectsList(), body);
        const ObjectBody* const owner = m_store.byHandle(m_parts.of(index).owner);
        if (owner != nullptr) body.owner = owner->self;
    }
}

/// True when an owner names an object as its own.
bool DrawingLinker::claims(const ObjectBody& owner, std::uint64_t handle) {
    const auto [place, isNew] = m_claims.try_emplace(owner.self);
    TagWalk tag(owner.tags());
    while (isNew && tag.next())
        if (isOwnerCode(tag.code())) place->second.insert(parseHandle(tag.value()).value_or(0));
    return place->second.count(handle) != 0;
}

/// True when a dictionary of the drawing's, no extension dictionary, has to hold an object: it has
/// no owner tag, or names an owner that does not know of it and might take it along when it goes.
bool DrawingLinker::isHeldBy(const ObjectBody& dictionary, const ObjectBody& value) {
    const bool namesOwner = m_parts.of(value.self).hasOwner;
    if (value.owner == kNoIndex) return !namesOwner;
    const Index holder = dictionary.owner;
    if (holder != kNoIndex && !isObjectKind(m_store.at(holder).kind)) return false;
    return namesOwner && value.owner != dictionary.self && value.self != holder &&
           !claims(m_store.at(value.owner), value.handle);
}

/// Objects that no owner holds belong to the first dictionary that names them.
void DrawingLinker::adoptDictionaryEntries() {
    const SlotRange& objects = m_parts.objects;
    for (Index index = objects.first; index < objects.end; ++index) {
        const ObjectBody& dictionary = m_store.at(index);
        if (dictionary.kind != Kind::Dictionary) continue;
        DictionaryReader entries(dictionary.tags());
        for (DictionaryEntry entry; entries.next(entry);) {
            ObjectBody* const value = m_store.byHandle(entry.handle);
            const bool isObject =
                value != nullptr && value->self >= objects.first && value->self < objects.end;
            if (isObject && isHeldBy(dictionary, *value)) value->owner = dictionary.self;
        }
    }
}

/// Owners that own each other would send every walk to the root in circles.
void DrawingLinker::breakOwnerCycles() {
    // 0: not walked yet; else the number of the walk that passed here.
    std::vector<Index> walk(m_store.count() + 1, 0);
    for (Index index = m_parts.objects.first; index < m_parts.objects.end; ++index) {
        Index at = index;
        while (at != kNoIndex && walk[at] == 0) {
            walk[at] = index;
            ObjectBody& body = m_store.at(at);
            if (body.owner != kNoIndex && walk[body.owner] == index) body.owner = kNoIndex;
            at = body.owner;
        }
    }
}

}  // namespace host
