// What a database object is made of: its stored tags and its links to other objects.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class AcDbObject;

namespace host {

class Store;

/// Position of a body in its store; 0 is none. Grows in the order in which objects became resident.
using Index = std::uint32_t;
constexpr Index kNoIndex = 0;

/// Which class an object is viewed through. Found from its type name and place.
enum class Kind : std::uint8_t {
    Object,
    Dictionary,
    Xrecord,
    BlockTable,
    LayerTable,
    LinetypeTable,
    OtherTable,
    BlockRecord,
    LayerRecord,
    LinetypeRecord,
    OtherRecord,
    BlockBegin,
    BlockEnd,
    Entity,
    BlockReference,
    Attribute,
    AttributeDefinition,
    Text,
    Polyline2d,
    Polyline3d,
    OtherPolyline,  ///< meshes
    Vertex,
    SequenceEnd,
};

/// True for what stands in the OBJECTS section.
bool isObjectKind(Kind kind);
/// True for main entities and sub-entities (BLOCK and ENDBLK are not reached as entities).
bool isEntityKind(Kind kind);
/// True for attributes, vertices and sequence ends.
bool isSubEntityKind(Kind kind);
/// True for tables, and for their records.
bool isTableKind(Kind kind);
bool isRecordKind(Kind kind);

/// Stored content of one object, in a store's slot or (before it joins a database) on the heap.
///
/// Siblings form a list in append order, which is the order of their indexes too. An erased body
/// leaves the list but keeps its own links as hints, so that a walk can go on from its old place
/// and erasure can be taken back. Sub-entities that were erased with their entity stay in its list.
struct ObjectBody {
    Store* store = nullptr;      ///< null until the object joins a database
    AcDbObject* view = nullptr;  ///< the open (or new) object, else null
    std::uint64_t handle = 0;    ///< 0 until the object joins a database
    const char* data = nullptr;  ///< tags in stored form, from tag 0 on; see tags.h
    std::uint32_t size = 0;      ///< bytes at data
    Index self = kNoIndex;
    Index owner = kNoIndex;  ///< object named by tag 330, or for entities by their place
    Index previous = kNoIndex;
    Index next = kNoIndex;
    Index firstChild = kNoIndex;
    Index lastChild = kNoIndex;
    Index sequenceEnd = kNoIndex;
    std::uint16_t readers = 0;
    Kind kind = Kind::Object;
    bool ownsData = false;  ///< data was allocated for this body, not borrowed from a load
    bool erased : 1;
    bool openForWrite : 1;
    bool releasedLater : 1;    ///< its extension dictionary was erased without being released
    bool erasedWithOwner : 1;  ///< erased because its owner was
    bool undone : 1;           ///< erased because its making was undone; see journal.h

    ObjectBody()
        : erased(false),
          openForWrite(false),
          releasedLater(false),
          erasedWithOwner(false),
          undone(false) {}
    ~ObjectBody();
    ObjectBody(const ObjectBody&) = delete;
    ObjectBody& operator=(const ObjectBody&) = delete;

    std::string_view tags() const { return {data, size}; }
    /// Replaces the tags. Every change of content of any object goes through here.
    void setTags(const std::string& tags);
    /// Type name: the value of tag 0, for example "LINE".
    std::string_view type() const;
    /// Text as its tags store it: in the drawing's encoding, in UTF-8 before it joins one.
    std::wstring decode(std::string_view bytes) const;
    std::string encode(std::wstring_view text) const;
};

/// Kind from a type name and the tags behind it; `inEntities` for what stands in a block.
Kind kindOf(std::string_view type, std::string_view text, bool inEntities);
/// The kind that all main entities of a type have, and no others; nothing when there is none such.
std::optional<Kind> kindOfOneType(std::string_view type);

/// True for an entity that stands in a block itself, so is no attribute, vertex or sequence end.
bool isMainEntity(const ObjectBody& body);

}  // namespace host
