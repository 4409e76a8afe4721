// First step of loading: the objects of TABLES, BLOCKS, ENTITIES and OBJECTS.
#include "host/dxf/load/drawing_builder.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

bool endsSection(const std::string& type) {
    return type.empty() || type == "ENDSEC" || type == "SECTION" || type == "EOF";
}

/// Kind of a record by its table; records that stand in a foreign table are nothing special.
Kind kindOfRecord(const std::string& table, std::string_view type, std::string_view text) {
    return type == table ? kindOf(type, text, false) : Kind::OtherRecord;
}

Kind kindOfObject(std::string_view type, std::string_view text) {
    const Kind kind = kindOf(type, text, false);
    return kind == Kind::Dictionary || kind == Kind::Xrecord ? kind : Kind::Object;
}

/// Kind of an entity in a block; sub-entities that belong to none and marks of blocks are nothing
/// special there.
Kind kindOfEntity(std::string_view type, std::string_view text) {
    const Kind kind = kindOf(type, text, true);
    const bool misplaced =
        isSubEntityKind(kind) || kind == Kind::BlockBegin || kind == Kind::BlockEnd;
    return misplaced ? Kind::Entity : kind;
}

}  // namespace

/// Makes a slot for m_object. Null after an error.
ObjectBody* DrawingBuilder::add(Kind kind) {
    ObjectBody* const body = m_store.create(kind, m_store.keep(m_object.text), m_object.handle);
    if (body == nullptr) {
        const ObjectBody* const first = m_store.byHandle(m_object.handle);
        const long line = first == nullptr ? 0 : static_cast<long>(m_parts.of(first->self).line);
        fail(m_object.handleLine, "handle " + formatHandle(m_object.handle) +
                                      " belongs to the object in line " + std::to_string(line) +
                                      " already; give one of them a free handle");
        return nullptr;
    }
    m_parts.facts.push_back(m_object.facts);
    return body;
}

/// Reads one thing after the other up to the end of the section. When a type is given, nothing else
/// may stand there.
bool DrawingBuilder::readAll(bool (DrawingBuilder::*readOne)(), const char* type,
                             const char* place) {
    while (!endsSection(m_reader.type())) {
        if (type != nullptr && m_reader.type() != type)
            return fail(m_reader.line(), m_reader.type() + " stands in " + place +
                                             "; repair the line or save the drawing anew");
        if (!(this->*readOne)()) return false;
    }
    return !m_reader.stream().failed();
}

bool DrawingBuilder::readRange(bool (DrawingBuilder::*readOne)(), SlotRange& range) {
    range.first = m_store.count() + 1;
    const bool complete = readAll(readOne);
    range.end = m_store.count() + 1;
    return complete;
}

bool DrawingBuilder::readTable() {
    if (!m_reader.read(m_object)) return false;
    const std::string name(trimmed(m_object.name()));
    const long line = m_object.line;
    if (!isFirst(m_tableLines, "table ", name, line)) return false;
    const ObjectBody* const table = add(kindOf("TABLE", m_object.text, false));
    if (table == nullptr) return false;
    m_store.tables().push_back(table->self);
    while (m_reader.type() != "ENDTAB") {
        if (endsSection(m_reader.type()) || m_reader.type() == "TABLE") {
            return failUnended("table " + name, line, "ENDTAB");
        }
        if (!m_reader.read(m_object)) return false;
        ObjectBody* const record = add(kindOfRecord(name, m_object.type(), m_object.text));
        if (record == nullptr) return false;
        m_store.appendChild(table->self, *record);
    }
    return m_reader.skipMark();
}

bool DrawingBuilder::readBlock() {
    if (!m_reader.read(m_object)) return false;
    LoadedBlock block;
    block.name = m_object.name();
    const long line = m_object.line;
    const ObjectBody* const begin = add(Kind::BlockBegin);
    if (begin == nullptr) return false;
    block.begin = begin->self;
    block.contents.first = m_store.count() + 1;
    while (m_reader.type() != "ENDBLK") {
        if (endsSection(m_reader.type()) || m_reader.type() == "BLOCK") {
            return failUnended("block " + block.name, line, "ENDBLK");
        }
        if (!readEntity()) return false;
    }
    block.contents.end = m_store.count() + 1;
    if (!m_reader.read(m_object)) return false;
    const ObjectBody* const end = add(Kind::BlockEnd);
    if (end == nullptr) return false;
    block.end = end->self;
    m_parts.blocks.push_back(std::move(block));
    return true;
}

/// Reads one entity with the sub-entities that follow it.
bool DrawingBuilder::readEntity() {
    if (!m_reader.read(m_object)) return false;
    const std::string type(m_object.type());
    ObjectBody* const body = add(kindOfEntity(type, m_object.text));
    if (body == nullptr) return false;
    if (type == "POLYLINE") return readSequence(*body, "VERTEX", type);
    if (type != "INSERT") return true;
    if (m_reader.type() == "ATTRIB") return readSequence(*body, "ATTRIB", type);
    // Without attributes a SEQEND belongs to the reference only when it is announced.
    const bool announced = integerTag(body->tags(), 66) != 0;
    if (!announced || m_reader.type() != "SEQEND") return true;
    return readSequence(*body, "ATTRIB", type);
}

bool DrawingBuilder::readSequence(ObjectBody& parent, const char* member, const std::string& name) {
    const long line = m_object.line;
    while (m_reader.type() == member) {
        if (!m_reader.read(m_object)) return false;
        ObjectBody* const body = add(kindOf(member, m_object.text, true));
        if (body == nullptr) return false;
        m_store.appendChild(parent.self, *body);
    }
    if (m_reader.type() != "SEQEND") {
        return failUnended("the sequence of the " + name, line, "SEQEND");
    }
    if (!m_reader.read(m_object)) return false;
    ObjectBody* const end = add(Kind::SequenceEnd);
    if (end == nullptr) return false;
    m_store.setSequenceEnd(parent, *end);
    return true;
}

bool DrawingBuilder::readObject() {
    return m_reader.read(m_object) && add(kindOfObject(m_object.type(), m_object.text)) != nullptr;
}

}  // namespace host
