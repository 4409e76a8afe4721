// The text of a drawing, section by section, into a file.
#include "host/dxf/save/drawing_writer.h"

#include <cstring>

#include "host/store/data_records.h"
#include "host/tags/tags.h"

namespace host {
namespace {

constexpr std::size_t kPiece = 1 << 20;

}  // namespace

DrawingWriter::DrawingWriter(Store& store, OutputFile& file, const ProgressFunction& progress)
    : m_store(store), m_file(file), m_progress(progress), m_references(store) {
    m_pending.reserve(kPiece + kPiece / 4);
}

bool DrawingWriter::write(std::string& why) {
    for (const Section& section : m_store.sections())
        writeSection(section);
    append("  0\nEOF\n");
    flush();
    why = m_why;
    return !m_failed;
}

void DrawingWriter::writeSection(const Section& section) {
    // Tags between two sections are kept as a section without a name.
    refuseLongValues(section.text, "section " + section.name);
    if (section.name.empty()) return append(section.text);
    append("  0\nSECTION\n  2\n");
    append(section.name);
    append("\n");
    switch (section.kind) {
        case SectionKind::Header:
        case SectionKind::Raw:
            append(section.text);
            break;
        case SectionKind::Tables:
            writeTables();
            break;
        case SectionKind::Blocks:
            writeBlocks();
            break;
        case SectionKind::Entities:
            writeEntities();
            break;
        case SectionKind::Objects:
            writeChildren(m_store.objectsList());
            break;
        case SectionKind::Data:
            writeDataRecords();
            break;
    }
    append("  0\nENDSEC\n");
}

void DrawingWriter::writeDataRecords() {
    for (const DataPiece& piece : m_store.dataRecords().pieces()) {
        if (m_references.isGone(piece.owner)) continue;
        append(piece.text);
        const bool ofClone = piece.owner != kNoIndex && piece.handle.empty();
        append(ofClone ? formatHandle(m_store.at(piece.owner).handle) : piece.handle);
        append(piece.rest);
    }
}

void DrawingWriter::writeTables() {
    for (const Index table : m_store.tables()) {
        writeObject(m_store.at(table));
        writeChildren(table);
        append("  0\nENDTAB\n");
    }
}

void DrawingWriter::writeBlocks() {
    const Index model = m_store.modelSpace();
    const Index paper = m_store.paperSpace();
    for (const Index record : m_store.blockOrder()) {
        const BlockParts& parts = m_store.blockParts(record);
        if (m_references.isGone(record) || parts.begin == kNoIndex) continue;
        writeObject(m_store.at(parts.begin));
        // The contents of the two spaces stand in ENTITIES.
        if (record != model && record != paper) writeChildren(record);
        writeObject(m_store.at(parts.end));
    }
}

/// Both spaces, in the order in which their entities came into the drawing.
void DrawingWriter::writeEntities() {
    Index model = m_store.firstLive(m_store.modelSpace());
    Index paper = m_store.firstLive(m_store.paperSpace());
    while (model != kNoIndex || paper != kNoIndex) {
        const bool takeModel = paper == kNoIndex || (model != kNoIndex && model < paper);
        Index& next = takeModel ? model : paper;
        const ObjectBody& entity = m_store.at(next);
        writeEntity(entity);
        next = m_store.nextLive(entity);
    }
}

void DrawingWriter::writeChildren(Index parent) {
    for (const ObjectBody& child : m_store.children(parent))
        if (!m_references.isGone(child.self)) writeEntity(child);
}

void DrawingWriter::writeEntity(const ObjectBody& entity) {
    writeObject(entity);
    if (!isEntityKind(entity.kind)) return;
    if (entity.firstChild != kNoIndex) writeChildren(entity.self);
    const Index end = entity.sequenceEnd;
    if (end != kNoIndex && !m_store.at(end).erased) writeObject(m_store.at(end));
}

void DrawingWriter::writeObject(const ObjectBody& body) {
    if (body.kind == Kind::BlockRecord && m_references.isGone(body.self)) return;
    const std::string_view text = m_references.cleaned(body);
    if (text.size() > kLongestValue)
        refuseLongValues(text, std::string(body.type()) + " " + formatHandle(body.handle));
    append(text);
    ++m_written;
    if ((m_written & 0x1FFF) == 0 && m_progress) {
        const double done = static_cast<double>(m_written) / m_store.count();
        m_progress(done < 1.0 ? done : 1.0);
    }
}

void DrawingWriter::refuseLongValues(std::string_view text, const std::string& holder) {
    TagReader reader(text);
    for (Tag tag; !m_failed && text.size() > kLongestValue && reader.next(tag);) {
        if (tag.value.size() <= kLongestValue) continue;
        m_failed = m_refusedValue = true;
        m_why = "group " + std::to_string(tag.code) + " of " + holder + " is longer than " +
                std::to_string(kLongestValue) + " bytes";
    }
}

void DrawingWriter::append(std::string_view text) {
    if (m_failed) return;
    if (m_store.lineEnding() == LineEnding::CrLf) {
        appendWithCrLf(text);
    } else {
        m_pending += text;
    }
    if (m_pending.size() >= kPiece) flush();
}

void DrawingWriter::appendWithCrLf(std::string_view text) {
    while (!text.empty()) {
        const void* found = std::memchr(text.data(), '\n', text.size());
        if (found == nullptr) break;
        const std::size_t length = static_cast<const char*>(found) - text.data();
        m_pending.append(text.data(), length).append("\r\n", 2);
        text.remove_prefix(length + 1);
    }
    m_pending += text;
}

void DrawingWriter::flush() {
    if (m_failed || m_pending.empty()) return;
    if (!m_file.write(m_pending, m_why)) m_failed = true;
    m_pending.clear();
}

}  // namespace host
