// First step of loading: sections and objects into slots of a store.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/dxf/load/object_reader.h"
#include "host/store/store.h"

namespace host {

/// Slots from `first` to before `end`.
struct SlotRange {
    Index first = kNoIndex;
    Index end = kNoIndex;
};

/// One BLOCK with its contents, not yet linked to its BLOCK_RECORD.
struct LoadedBlock {
    std::string name;
    Index begin = kNoIndex;
    Index end = kNoIndex;
    SlotRange contents;  ///< sub-entities in it are linked to their parents already
};

/// What the first step leaves to the second.
struct LoadedParts {
    std::vector<ObjectFacts> facts;  ///< by slot index
    std::vector<LoadedBlock> blocks;
    SlotRange entities;
    SlotRange objects;

    ObjectFacts& of(Index index) { return facts[index]; }
};

/// Reads all sections. Records become children of their tables, sub-entities of their entities;
/// everything else is linked later, because sections may come in any order.
class DrawingBuilder {
  public:
    DrawingBuilder(Store& store, TagStream& stream, LoadedParts& parts);
    /// False after an error.
    bool build();

  private:
    bool readSection();
    bool readSectionBody(SectionKind kind);
    bool readHeader(std::string& text);
    bool applyVersion(long versionLine, long codePageLine);
    bool readAll(bool (DrawingBuilder::*readOne)(), const char* type = nullptr,
                 const char* place = nullptr);
    bool readRange(bool (DrawingBuilder::*readOne)(), SlotRange& range);
    bool readTable();
    bool readBlock();
    bool readEntity();
    bool readObject();
    bool readSequence(ObjectBody& parent, const char* member, const std::string& name);
    ObjectBody* add(Kind kind);
    bool isFirst(std::map<std::string, long>& lines, const char* what, const std::string& name,
                 long line);
    bool failUnended(const std::string& what, long line, const char* end);
    bool fail(long line, const std::string& text) { return m_reader.stream().fail(line, text); }

    Store& m_store;
    ObjectReader m_reader;
    LoadedParts& m_parts;
    RawObject m_object;
    std::map<std::string, long> m_sectionLines;
    std::map<std::string, long> m_tableLines;
    std::string m_version;
};

}  // namespace host
