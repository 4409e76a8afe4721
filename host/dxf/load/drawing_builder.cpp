// First step of loading: the file's sections, its version and encoding.
#include "host/dxf/load/drawing_builder.h"

#include "host/tags/tags.h"

namespace host {
namespace {

constexpr const char* kNoVersion =
    "the drawing has no $ACADVER, so it is older than 2000; save it as ASCII DXF 2000 or later";
constexpr const char* kCutOff = "the file ends without EOF: it is cut off; fetch a whole copy";

SectionKind kindOfSection(const std::string& name) {
    if (name == "HEADER") return SectionKind::Header;
    if (name == "TABLES") return SectionKind::Tables;
    if (name == "BLOCKS") return SectionKind::Blocks;
    if (name == "ENTITIES") return SectionKind::Entities;
    if (name == "OBJECTS") return SectionKind::Objects;
    return name == "ACDSDATA" ? SectionKind::Data : SectionKind::Raw;
}

bool isServedVersion(const std::string& version) {
    static const char* const served[] = {"AC1015", "AC1018", "AC1021",
                                         "AC1024", "AC1027", "AC1032"};
    for (const char* const name : served) {
        if (version == name) return true;
    }
    return false;
}

}  // namespace

DrawingBuilder::DrawingBuilder(Store& store, TagStream& stream, LoadedParts& parts)
    : m_store(store), m_reader(stream), m_parts(parts) {
    m_parts.facts.resize(store.count() + 1);
}

bool DrawingBuilder::build() {
    if (!m_reader.start()) {
        return fail(m_reader.line() + 1, kCutOff);
    }
    while (m_reader.type() == "SECTION") {
        if (!readSection()) return false;
    }
    TagStream& stream = m_reader.stream();
    if (stream.failed()) return false;
    if (m_reader.type().empty()) return fail(m_reader.line() + 1, kCutOff);
    if (m_reader.type() != "EOF") {
        return fail(m_reader.line(), m_reader.type() + " stands outside of any section; " +
                                         "repair the line or save the drawing anew");
    }
    if (!m_version.empty()) return true;
    return fail(0, kNoVersion);
}

bool DrawingBuilder::readSection() {
    const long line = m_reader.line();
    std::string name;
    if (!m_reader.readSectionName(name)) return false;
    if (!isFirst(m_sectionLines, "section ", name, line)) return false;
    const SectionKind kind = kindOfSection(name);
    m_store.sections().push_back({name, kind, {}});
    if (!readSectionBody(kind)) return false;
    if (m_reader.type() != "ENDSEC") return failUnended("section " + name, line, "ENDSEC");
    // Some writers end HEADER early and a second time; what is between the two stays there.
    std::string strays;
    if (!m_reader.skipMark(strays)) return false;
    if (!strays.empty()) m_store.sections().push_back({"", SectionKind::Raw, std::move(strays)});
    return true;
}

/// Notes the line of a section or table; tells of a second one of that name.
bool DrawingBuilder::isFirst(std::map<std::string, long>& lines, const char* what,
                             const std::string& name, long line) {
    const auto [place, isNew] = lines.emplace(name, line);
    return isNew || fail(line, what + name + " stands here a second time (first in line " +
                                   std::to_string(place->second) + "); remove one of them");
}

/// Tells that what began in `line` does not end where the reader stands.
bool DrawingBuilder::failUnended(const std::string& what, long line, const char* end) {
    const std::string begun = what + " (line " + std::to_string(line) + ")";
    if (m_reader.type().empty()) {
        return fail(m_reader.line() + 1,
                    "the file is cut off inside " + begun + "; fetch a whole copy");
    }
    return fail(m_reader.line(), begun + " has no " + end + " before " + m_reader.type() +
                                     "; repair the line or save the drawing anew");
}

bool DrawingBuilder::readSectionBody(SectionKind kind) {
    std::string& text = m_store.sections().back().text;
    if (kind == SectionKind::Header) return readHeader(text);
    if (kind == SectionKind::Raw || kind == SectionKind::Data) return m_reader.readRaw(text);
    if (!m_reader.skipMark()) return false;
    using Builder = DrawingBuilder;
    if (kind == SectionKind::Tables)
        return readAll(&Builder::readTable, "TABLE", "TABLES outside of any table");
    if (kind == SectionKind::Blocks)
        return readAll(&Builder::readBlock, "BLOCK", "BLOCKS outside of any block");
    return kind == SectionKind::Entities ? readRange(&Builder::readEntity, m_parts.entities)
                                         : readRange(&Builder::readObject, m_parts.objects);
}

bool DrawingBuilder::readHeader(std::string& text) {
    std::string variable;
    long versionLine = 0;
    long codePageLine = 0;
    const auto seen = [&](const TagStream::Tag& tag, long line) {
        if (tag.code == 9) {
            variable.assign(tag.value);
        } else if (variable == "$ACADVER") {
            m_version.assign(trimmed(tag.value));
            versionLine = line + 1;
        } else if (variable == "$DWGCODEPAGE") {
            codePageLine = line + 1;
        }
    };
    return m_reader.readRaw(text, seen) && applyVersion(versionLine, codePageLine);
}

/// Refuses versions that are not served and sets the encoding of the others.
bool DrawingBuilder::applyVersion(long versionLine, long codePageLine) {
    if (m_version.empty()) {
        return fail(0, kNoVersion);
    }
    if (!isServedVersion(m_version)) {
        const char* const advice = m_version < "AC1015"
                                       ? " is older than 2000; save it as ASCII DXF 2000 or later"
                                       : " is not known; save it as ASCII DXF 2000 to 2018";
        return fail(versionLine, "version " + m_version + advice);
    }
    Encoding encoding;
    encoding.utf8 = m_version >= "AC1021";
    const auto page = m_store.headerValue("$DWGCODEPAGE");
    encoding.codePage = page ? std::string(trimmed(*page)) : "ANSI_1252";
    if (!encodingKnown(encoding)) {
        return fail(codePageLine,
                    "code page \"" + encoding.codePage +
                        "\" is not known here; save the drawing as DXF 2007 or later");
    }
    m_store.setEncoding(encoding);
    return m_reader.stream().setEncoding(encoding);
}

}  // namespace host
