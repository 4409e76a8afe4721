// What a tag is part of: markers, brackets, identity.
#include "host/tags/tag_walk.h"

namespace host {

void TagPosition::enterSpecial(int code, std::string_view value) {
    if (code >= 1000) m_zone = TagZone::Extended;
    if (m_zone == TagZone::Data) return;
    if (code == 102) return enterBracket(trimmed(value));
    if (!own()) return;
    if (code == 0) {
        m_role = TagRole::Type;
        m_handleCode = value == "DIMSTYLE" ? 105 : 5;
    } else if (code == 100) {
        enterPart(trimmed(value));
    } else if (code == 101) {
        m_zone = TagZone::Embedded;
    } else if (code == m_handleCode && !m_hasHandle) {
        m_role = TagRole::Handle;
        m_hasHandle = true;
    } else if (code == 330 && !m_hasOwner && m_zone <= TagZone::Common) {
        m_role = TagRole::Owner;
        m_hasOwner = true;
    }
}

void TagPosition::enterPart(std::string_view marker) {
    const bool common =
        marker == "AcDbEntity" || marker == "AcDbSymbolTable" || marker == "AcDbSymbolTableRecord";
    m_role = TagRole::Marker;
    if (marker == "AcDbXrecord") {
        m_zone = TagZone::Data;
    } else {
        m_zone = common && m_zone <= TagZone::Common ? TagZone::Common : TagZone::Part;
    }
}

void TagPosition::enterBracket(std::string_view value) {
    if (value.empty()) return;
    if (value.front() == '{') {
        m_role = TagRole::Opens;
        if (m_depth++ > 0) return;
        m_bracket = value == "{ACAD_REACTORS"      ? Bracket::Reactors
                    : value == "{ACAD_XDICTIONARY" ? Bracket::ExtensionDictionary
                    : value == "{BLKREFS"          ? Bracket::BlockReferences
                                                   : Bracket::Other;
    } else if (value.front() == '}') {
        m_role = m_depth > 0 ? TagRole::Closes : TagRole::ClosesNone;
    }
}

}  // namespace host
