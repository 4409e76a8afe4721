// One object after the other: collecting tags, finding handle, owner and place.
#include "host/dxf/load/object_reader.h"

#include "host/tags/tag_values.h"

namespace host {
namespace {

/// Bodies count their bytes in 32 bits.
constexpr std::size_t kLargestObject = std::size_t{1} << 31;

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

}  // namespace

std::string_view RawObject::type() const {
    const std::size_t begin = text.find('\n') + 1;
    return std::string_view(text).substr(begin, text.find('\n', begin) - begin);
}

std::string_view RawObject::name() const { return rawTag(text, 2); }

bool ObjectReader::advance() {
    if (!m_stream.next(m_tag)) {
        m_type.clear();
        m_tag = {};
        m_tag.code = -1;
        m_typeLine = m_stream.line();
        return false;
    }
    if (m_tag.code == 0) {
        m_type.assign(trimmed(m_tag.value));
        m_typeLine = m_stream.line();
    }
    return true;
}

bool ObjectReader::start() {
    if (!advance()) return false;
    if (m_tag.code == 0) return true;
    return m_stream.fail(m_stream.line(),
                         "the file does not begin with group 0; this is not a DXF drawing");
}

void ObjectReader::append(std::string& text) const {
    if (!m_tag.stored.empty()) {
        text.append(m_tag.stored);
    } else {
        addTag(text, m_tag.code, m_tag.value);
    }
}

/// Notes what a tag tells about the object.
bool ObjectReader::note(RawObject& object, TagRole role) {
    const std::string_view value = m_tag.value;
    if (role == TagRole::Handle) {
        object.handleLine = m_stream.line() + 1;
        const auto handle = parseHandle(value);
        if (!handle || *handle == 0 || *handle > kHighestHandle) {
            return m_stream.fail(object.handleLine, quoted(value) + " is no handle of an object; " +
                                                        "repair the line or remove the group");
        }
        object.handle = *handle;
        return true;
    }
    if (role == TagRole::Owner) {
        object.facts.owner = parseHandle(value).value_or(0);
        object.facts.hasOwner = true;
    }
    switch (m_tag.code) {
        case 67:
            if (object.hasSpace) break;
            object.hasSpace = true;
            object.facts.hasSpace = true;
            object.facts.inPaper = parseInteger(value).value_or(0) != 0;
            break;
        case 410:
            if (object.hasSpace || value.empty()) break;
            object.facts.hasSpace = true;
            object.facts.inPaper = trimmed(value) != "Model";
            break;
        default:
            break;
    }
    return true;
}

bool ObjectReader::read(RawObject& object) {
    object.text.clear();
    object.handle = 0;
    object.line = m_typeLine;
    object.hasSpace = false;
    object.facts = {};
    object.facts.line = static_cast<std::uint64_t>(m_typeLine);
    // Type names are compared everywhere, so blanks around them are not kept.
    addTag(object.text, 0, m_type);
    TagPosition position;
    position.enter(0, m_type);
    while (advance() && m_tag.code != 0) {
        append(object.text);
        position.enter(m_tag.code, m_tag.value);
        if (position.own() && !note(object, position.role())) return false;
    }
    if (object.text.size() > kLargestObject) {
        return m_stream.fail(object.line, "the object is larger than 2 GB; remove it");
    }
    return !m_stream.failed();
}

bool ObjectReader::skipMark() {
    const std::string mark = m_type;
    if (!advance()) return !m_stream.failed();
    if (m_tag.code == 0) return true;
    return m_stream.fail(m_stream.line(), "group " + std::to_string(m_tag.code) + " behind " +
                                              mark + " belongs to nothing; remove it");
}

bool ObjectReader::skipMark(std::string& strays) {
    while (advance() && (m_tag.code != 0 || m_type == "ENDSEC"))
        append(strays);
    return !m_stream.failed();
}

bool ObjectReader::readSectionName(std::string& name) {
    const long line = m_typeLine;
    if (!advance() || m_tag.code != 2 || trimmed(m_tag.value).empty()) {
        return m_stream.fail(line,
                             "the section has no name (group 2); the file is damaged or cut "
                             "off, fetch a whole copy");
    }
    name.assign(trimmed(m_tag.value));
    m_type = "SECTION " + name;
    return true;
}

bool ObjectReader::readRaw(std::string& text, const TagSeen& seen) {
    while (advance()) {
        if (m_tag.code == 0 && (m_type == "ENDSEC" || m_type == "SECTION" || m_type == "EOF")) {
            return true;
        }
        if (seen) seen(m_tag, m_stream.line());
        append(text);
    }
    return !m_stream.failed();
}

}  // namespace host
