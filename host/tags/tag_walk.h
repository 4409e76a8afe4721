// The walk over an object's tags that knows what each of them is part of.
//
// An object is a head (type, handle, links in brackets 102, owner), parts that begin with subclass
// markers (100), first those that many classes have in common, perhaps an embedded object (101),
// and extended data (1000 and up). Behind the marker of an XRECORD everything up to extended data
// is data: a 102 there is a text and a 100 no marker, whatever they look like.
#pragma once

#include <string_view>

#include "host/tags/tag_codes.h"
#include "host/tags/tags.h"

namespace host {

enum class TagZone : unsigned char {
    Head,    ///< in front of the first marker
    Common,  ///< in a part that all entities, tables or records have
    Part,
    Data,      ///< of an XRECORD
    Embedded,  ///< in an embedded object
    Extended
};

enum class TagRole : unsigned char {
    Plain,
    Type,
    Handle,  ///< the object's own: the first 5 (105 in DIMSTYLE) outside brackets
    Owner,   ///< the first 330 outside brackets in front of the class's own parts
    Marker,
    Opens,  ///< a bracket
    Closes,
    ClosesNone  ///< would close a bracket where none is open
};

/// BlockReferences: of a block record, the references to the block.
enum class Bracket : unsigned char { None, Reactors, ExtensionDictionary, BlockReferences, Other };

/// Follows the tags of one object.
class TagPosition {
  public:
    /// Goes on to the next tag.
    void enter(int code, std::string_view value) {
        if (m_role == TagRole::Closes && --m_depth == 0) m_bracket = Bracket::None;
        m_role = TagRole::Plain;
        if (code >= 100 || code == 5 || code == 0) enterSpecial(code, value);
    }
    TagZone zone() const { return m_zone; }
    TagRole role() const { return m_role; }
    /// Brackets around the tag; one that opens or closes a bracket stands inside it.
    int depth() const { return m_depth; }
    /// True when a bracket is still open behind the tag.
    bool leavesOpen() const { return m_depth > (m_role == TagRole::Closes ? 1 : 0); }
    /// The outermost of them.
    Bracket bracket() const { return m_bracket; }
    /// True for what the object says of itself: outside brackets, embedded and extended data.
    bool own() const { return m_depth == 0 && m_zone < TagZone::Embedded; }

  private:
    void enterSpecial(int code, std::string_view value);
    void enterPart(std::string_view marker);
    void enterBracket(std::string_view value);

    TagZone m_zone = TagZone::Head;
    TagRole m_role = TagRole::Plain;
    Bracket m_bracket = Bracket::None;
    bool m_hasHandle = false;
    bool m_hasOwner = false;
    int m_handleCode = 5;
    int m_depth = 0;
};

/// Reads an object's stored tags, or one part of them; borrows the text. Allocates nothing.
class TagWalk : public TagPosition {
  public:
    explicit TagWalk(std::string_view text) : m_text(text), m_reader(text) {}

    /// Goes on to the next tag; false at the end.
    bool next() {
        if (!m_reader.next(m_tag)) return false;
        enter(m_tag.code, m_tag.value);
        return true;
    }
    /// The same to the next own tag; false behind the last.
    bool nextOwn() {
        while (next() && zone() < TagZone::Embedded)
            if (depth() == 0) return true;
        return false;
    }
    const Tag& tag() const { return m_tag; }
    int code() const { return m_tag.code; }
    std::string_view value() const { return m_tag.value; }
    /// Offset at which the tag begins, and at which the next one does.
    std::size_t begin() const { return m_reader.begin(); }
    std::size_t end() const { return m_reader.end(); }
    /// The tag as it stands in the text.
    std::string_view stored() const { return m_text.substr(begin(), end() - begin()); }
    TagPlace place() const { return {begin(), end(), value()}; }
    /// For reading on over tags without meaning to the walk: coordinates.
    TagReader& reader() { return m_reader; }

  private:
    std::string_view m_text;
    TagReader m_reader;
    Tag m_tag;
};

}  // namespace host
