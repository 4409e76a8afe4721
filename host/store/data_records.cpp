// The section ACDSDATA taken apart, and records for clones.
#include "host/store/data_records.h"

#include <algorithm>

#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// Number of a schema; -1 for what is none.
long long numberIn(std::string_view value) {
    const long long number = parseInteger(value).value_or(-1);
    return number < 1'000'000'000 ? number : -1;
}

/// Text with the number of every group 90 or 95 turned that names a schema.
template <typename Turn>
std::string withSchemas(std::string_view text, const Turn& turn) {
    std::string made;
    TagReader reader(text);
    for (Tag tag; reader.next(tag);) {
        const bool names = tag.code == 90 || tag.code == 95;
        const auto index = names ? parseInteger(tag.value) : std::nullopt;
        if (index) {
            addTag(made, tag.code, static_cast<int>(turn(*index)));
        } else {
            made += text.substr(reader.begin(), reader.end() - reader.begin());
        }
    }
    return made;
}

}  // namespace

DataPiece DataRecords::pieceOf(std::string_view text) const {
    DataPiece piece;
    piece.text = text;
    bool named = false;
    TagReader reader(text);
    for (Tag tag; reader.next(tag);) {
        if (tag.code == 0 && tag.value == "ACDSSCHEMA") piece.kind = DataPiece::Kind::Schema;
        if (tag.code == 0 && tag.value == "ACDSRECORD") piece.kind = DataPiece::Kind::Record;
        if (tag.code == 90 && piece.index < 0) piece.index = numberIn(tag.value);
        if (tag.code == 1 && !named) piece.name = tag.value;
        named = named || tag.code == 1;
        if (tag.code != 320 || piece.kind != DataPiece::Kind::Record) continue;
        const std::size_t begin = tag.value.data() - text.data();
        piece.text = text.substr(0, begin);
        piece.handle = tag.value;
        piece.rest = text.substr(begin + tag.value.size());
        break;
    }
    return piece;
}

DataRecords::Pieces::iterator DataRecords::add(Pieces::iterator place, DataPiece piece) {
    const auto made = m_pieces.insert(place, std::move(piece));
    if (made->kind == DataPiece::Kind::Record && m_firstRecord == m_pieces.end())
        m_firstRecord = made;
    if (made->owner != kNoIndex) m_records[made->owner].push_back(&*made);
    if (made->kind != DataPiece::Kind::Schema) return made;
    m_schemas.emplace(made->index, &*made);
    m_numbers.emplace(made->name, made->index);
    m_nextSchema = std::max(m_nextSchema, made->index + 1);
    return made;
}

void DataRecords::read(std::string_view text) {
    text = m_store.keep(text);
    std::size_t begin = 0;
    const auto endPiece = [&](std::size_t end) {
        if (begin == end) return;
        DataPiece piece = pieceOf(text.substr(begin, end - begin));
        const ObjectBody* const owner = m_store.byHandle(piece.handle);
        if (owner != nullptr) piece.owner = owner->self;
        add(m_pieces.end(), std::move(piece));
        begin = end;
    };
    TagReader reader(text);
    for (Tag tag; reader.next(tag);)
        if (tag.code == 0) endPiece(reader.begin());
    endPiece(text.size());
}

/// Number of the schema here that has the name of one elsewhere. When there is none it is copied
/// with those that it names in turn. A number that names none stays.
long long DataRecords::bringSchema(const DataRecords& from, long long index) {
    std::vector<Pieces::iterator> copied;
    const auto numberHere = [&](long long number) {
        const auto source = from.m_schemas.find(number);
        if (source == from.m_schemas.end()) return number;
        const DataPiece& schema = *source->second;
        const auto here = m_numbers.find(schema.name);
        if (here != m_numbers.end()) return here->second;
        copied.push_back(
            add(m_firstRecord,
                {schema.kind, schema.text, {}, {}, kNoIndex, schema.name, m_nextSchema}));
        return copied.back()->index;
    };
    const long long here = numberHere(index);
    for (std::size_t done = 0; done < copied.size(); ++done) {
        const auto schema = copied[done];
        schema->text = m_store.keep(withSchemas(schema->text, numberHere));
    }
    return here;
}

void DataRecords::copy(const ObjectBody& source, Index clone) {
    const DataRecords& from = source.store->dataRecords();
    const auto found = from.m_records.find(source.self);
    if (found == from.m_records.end()) return;
    m_store.section(SectionKind::Data);
    if (m_pieces.empty() && from.m_pieces.front().kind == DataPiece::Kind::Other)
        add(m_pieces.end(), pieceOf(m_store.keep(from.m_pieces.front().text)));
    // The source may be of this drawing, and the list grows.
    const std::vector<const DataPiece*> records = found->second;
    for (const DataPiece* record : records) {
        DataPiece made = *record;
        made.handle = {};
        made.owner = clone;
        if (&from != this) {
            made.index = bringSchema(from, record->index);
            const auto turned = [&](long long) { return made.index; };
            made.text = m_store.keep(withSchemas(record->text, turned));
            made.rest = m_store.keep(record->rest);
        }
        add(m_pieces.end(), std::move(made));
    }
}

}  // namespace host
