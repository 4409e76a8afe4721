// The records of the section ACDSDATA: data of objects that stands outside of them.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/store/object_body.h"

namespace host {

/// A piece of the section, up to the next group 0. A record names its object in group 320.
struct DataPiece {
    enum class Kind { Other, Schema, Record } kind = Kind::Other;
    std::string_view text;    ///< of a record: what stands before the handle
    std::string_view handle;  ///< as loaded; empty in a clone's record
    std::string_view rest;
    Index owner = kNoIndex;  ///< of a record: the object, when the drawing has it
    std::string name;        ///< of a schema
    long long index = -1;    ///< of a schema, or of a record's schema; -1 when it says none
};

/// From AC1027 on the geometry of solids, regions and surfaces stands here, with pictures of
/// layouts and views. Every record is kept, whether its object is erased or not, so that undoing
/// needs nothing; a save leaves out those of erased objects.
class DataRecords {
  public:
    explicit DataRecords(Store& store) : m_store(store) {}
    DataRecords(const DataRecords&) = delete;
    DataRecords& operator=(const DataRecords&) = delete;

    /// Takes the text of the section apart. Every loaded object has its handle by then.
    void read(std::string_view text);
    /// The whole section in its order; records of clones stand behind the others.
    const std::list<DataPiece>& pieces() const { return m_pieces; }
    bool has(Index owner) const { return m_records.count(owner) > 0; }
    /// Gives a clone, which is of this drawing, what its source has. From another drawing the
    /// schema goes along, unless one of its name is here; a drawing without the section gets it.
    void copy(const ObjectBody& source, Index clone);

  private:
    using Pieces = std::list<DataPiece>;

    DataPiece pieceOf(std::string_view text) const;
    Pieces::iterator add(Pieces::iterator place, DataPiece piece);
    long long bringSchema(const DataRecords& from, long long index);

    Store& m_store;
    Pieces m_pieces;
    Pieces::iterator m_firstRecord = m_pieces.end();
    std::unordered_map<Index, std::vector<const DataPiece*>> m_records;  ///< by owner
    std::unordered_map<long long, const DataPiece*> m_schemas;           ///< by number
    std::unordered_map<std::string, long long> m_numbers;                ///< of schemas, by name
    long long m_nextSchema = 0;
};

}  // namespace host
