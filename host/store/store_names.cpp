// Finding by name: sections, tables, symbols, header variables and the spaces.
#include <algorithm>

#include "host/objectarx/symbol_tables.h"
#include "host/store/body_text.h"
#include "host/store/journal.h"
#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tag_values.h"

namespace host {

namespace {

/// By kind.
constexpr const char* kSectionNames[] = {"HEADER",   "CLASSES", "TABLES",  "BLOCKS",
                                         "ENTITIES", "OBJECTS", "ACDSDATA"};

/// True when a record has this name, which is folded. Plain names are compared as they are stored.
bool isNamed(const ObjectBody& record, std::wstring_view folded) {
    const std::string_view stored = rawTag(record.tags(), 2);
    const auto same = [](char c, wchar_t wanted) {
        const bool lower = c >= 'a' && c <= 'z';
        return c > 0 && c != '\\' && static_cast<wchar_t>(lower ? c - 'a' + 'A' : c) == wanted;
    };
    return std::equal(stored.begin(), stored.end(), folded.begin(), folded.end(), same) ||
           foldCase(symbolName(record)) == folded;
}

}  // namespace

Section& Store::section(SectionKind kind) {
    const auto same = [kind](const Section& section) { return section.kind == kind; };
    const auto found = std::find_if(m_sections.begin(), m_sections.end(), same);
    if (found != m_sections.end()) return *found;
    const auto later = [kind](const Section& section) {
        return section.kind != SectionKind::Raw && section.kind > kind;
    };
    const auto place = std::find_if(m_sections.begin(), m_sections.end(), later);
    return *m_sections.insert(place, Section{kSectionNames[static_cast<int>(kind)], kind, {}});
}

Index Store::table(std::string_view name) const {
    // Tables are only ever added, under a name that stays; the first of a name counts.
    for (; m_tablesNamed < m_tables.size(); ++m_tablesNamed) {
        const Index table = m_tables[m_tablesNamed];
        m_tableNames.emplace(textTag(at(table).tags(), 2), table);
    }
    const auto found = m_tableNames.find(std::string(name));
    return found != m_tableNames.end() ? found->second : kNoIndex;
}

Index Store::rootDictionary() const {
    for (const ObjectBody& body : children(m_objectsList))
        if (body.kind == Kind::Dictionary && body.owner == kNoIndex) return body.self;
    return kNoIndex;
}

void Store::recordsChanged(Kind kind) const {
    if (kind == Kind::LayerRecord) m_lockedLayersKnown = false;
    if (kind == Kind::BlockRecord) m_spacesKnown = false;
}

void Store::findSpaces() const {
    if (m_spacesKnown) return;
    const auto find = [this](std::wstring_view name) {
        const ObjectBody* const record = liveSymbol("BLOCK_RECORD", name);
        return record != nullptr ? record->self : kNoIndex;
    };
    m_modelSpace = find(ACDB_MODEL_SPACE);
    m_paperSpace = find(ACDB_PAPER_SPACE);
    m_spacesKnown = m_modelSpace != kNoIndex;
}

Index Store::modelSpace() const {
    findSpaces();
    return m_modelSpace;
}

Index Store::paperSpace() const {
    findSpaces();
    return m_paperSpace;
}

bool Store::modelTabCurrent() const {
    const auto tilemode = headerValue("$TILEMODE");
    return !tilemode || parseInteger(*tilemode).value_or(1) != 0;
}

Index Store::currentSpace() const {
    return modelTabCurrent() || currentViewport != 1 ? modelSpace() : paperSpace();
}

ObjectBody* Store::symbol(Index table, std::wstring_view name) const {
    const auto records = m_symbols.find(table);
    if (records == m_symbols.end()) return nullptr;
    const std::wstring folded = foldCase(name);
    const auto found = records->second.find(folded);
    if (found == records->second.end()) return nullptr;
    ObjectBody* erasedOne = nullptr;
    for (const Index index : found->second) {
        ObjectBody& record = at(index);
        // A renamed record is still noted under its former name.
        if (record.undone || !isNamed(record, folded)) continue;
        if (!record.erased) return &record;
        erasedOne = &record;
    }
    return erasedOne;
}

ObjectBody* Store::symbol(std::string_view tableName, std::wstring_view name) const {
    return symbol(table(tableName), name);
}

void Store::indexSymbol(Index table, const ObjectBody& record, std::wstring_view name) {
    recordsChanged(record.kind);
    std::vector<Index>& sameName = m_symbols[table][foldCase(name)];
    if (std::find(sameName.begin(), sameName.end(), record.self) == sameName.end())
        sameName.push_back(record.self);
}

bool Store::onLockedLayer(const ObjectBody& entity) const {
    if (!m_lockedLayersKnown) {
        m_lockedLayers.clear();
        for (const ObjectBody& layer : children(table("LAYER")))
            if (layerState(layer).locked) m_lockedLayers.insert(foldCase(symbolName(layer)));
        m_lockedLayersKnown = true;
    }
    return !m_lockedLayers.empty() && m_lockedLayers.count(foldCase(layerName(entity))) != 0;
}

std::optional<std::string_view> Store::headerValue(std::string_view name) const {
    // A line with just the name behind a code line 9 is always a variable's begin.
    constexpr std::string_view kNameCode = "  9\n";
    for (const Section& section : m_sections) {
        if (section.kind != SectionKind::Header) continue;
        const std::string_view text = section.text;
        std::size_t at = text.find(name);
        for (; at != text.npos; at = text.find(name, at + 1)) {
            const std::size_t end = at + name.size();
            const bool whole = at >= kNameCode.size() && end < text.size() && text[end] == '\n';
            if (!whole || text.substr(at - kNameCode.size(), kNameCode.size()) != kNameCode)
                continue;
            TagReader reader(text.substr(end + 1));
            Tag value;
            if (reader.next(value) && value.code != 9) return value.value;
            // A name without a value counts as missing; saving adds the variable behind it.
        }
    }
    return std::nullopt;
}

void Store::setHeaderValue(std::string_view name, int code, std::string_view value) {
    std::string& text = section(SectionKind::Header).text;
    // The next free handle only grows, and is set by saving: nothing to undo.
    if (name != "$HANDSEED") m_journal->headerChanges(text);
    ++revision;
    if (const auto old = headerValue(name)) {
        const std::string copy(value);
        text.replace(static_cast<std::size_t>(old->data() - text.data()), old->size(), copy);
        return;
    }
    addTag(text, 9, name);
    addTag(text, code, value);
}

std::string Store::version() const {
    return std::string(headerValue("$ACADVER").value_or("AC1009"));
}

std::wstring symbolName(const ObjectBody& record) {
    return record.decode(rawTag(record.tags(), 2));
}

std::wstring layerName(const ObjectBody& entity) {
    return entity.decode(rawTag(entity.tags(), 8, "0"));
}

}  // namespace host
