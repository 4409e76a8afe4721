// Stored content of one object: its text, type name and kind.
#include "host/store/object_body.h"

#include <algorithm>
#include <utility>

#include "host/store/body_text.h"
#include "host/store/journal.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {

namespace {

struct NamedKind {
    std::string_view type;
    Kind kind;
};

constexpr NamedKind kKinds[] = {{"DICTIONARY", Kind::Dictionary},
                                {"ACDBDICTIONARYWDFLT", Kind::Dictionary},
                                {"XRECORD", Kind::Xrecord},
                                {"BLOCK_RECORD", Kind::BlockRecord},
                                {"LAYER", Kind::LayerRecord},
                                {"LTYPE", Kind::LinetypeRecord},
                                {"STYLE", Kind::OtherRecord},
                                {"VIEW", Kind::OtherRecord},
                                {"UCS", Kind::OtherRecord},
                                {"VPORT", Kind::OtherRecord},
                                {"APPID", Kind::OtherRecord},
                                {"DIMSTYLE", Kind::OtherRecord},
                                {"BLOCK", Kind::BlockBegin},
                                {"ENDBLK", Kind::BlockEnd},
                                {"INSERT", Kind::BlockReference},
                                {"ATTRIB", Kind::Attribute},
                                {"ATTDEF", Kind::AttributeDefinition},
                                {"TEXT", Kind::Text},
                                {"VERTEX", Kind::Vertex},
                                {"SEQEND", Kind::SequenceEnd}};

/// Object for a type without a kind of its own.
Kind findKind(std::string_view type) {
    for (const NamedKind& named : kKinds)
        if (named.type == type) return named.kind;
    return Kind::Object;
}

Kind polylineKind(std::string_view text) {
    constexpr int kIs3d = 8, kIsMesh = 16 | 64;
    const int flags = integerTag(text, 70);
    if ((flags & kIsMesh) != 0) return Kind::OtherPolyline;
    return (flags & kIs3d) != 0 ? Kind::Polyline3d : Kind::Polyline2d;
}

Kind tableKind(std::string_view text) {
    const std::string_view name = textTag(text, 2);
    if (name == "BLOCK_RECORD") return Kind::BlockTable;
    if (name == "LAYER") return Kind::LayerTable;
    return name == "LTYPE" ? Kind::LinetypeTable : Kind::OtherTable;
}

}  // namespace

bool isObjectKind(Kind kind) { return kind <= Kind::Xrecord; }

bool isTableKind(Kind kind) { return kind >= Kind::BlockTable && kind <= Kind::OtherTable; }

bool isRecordKind(Kind kind) { return kind >= Kind::BlockRecord && kind <= Kind::OtherRecord; }

bool isEntityKind(Kind kind) { return kind >= Kind::Entity; }

bool isSubEntityKind(Kind kind) {
    return kind == Kind::Attribute || kind == Kind::Vertex || kind == Kind::SequenceEnd;
}

bool isMainEntity(const ObjectBody& body) {
    return isEntityKind(body.kind) && !isSubEntityKind(body.kind);
}

Kind kindOf(std::string_view type, std::string_view text, bool inEntities) {
    if (type == "POLYLINE" && inEntities) return polylineKind(text);
    if (type == "TABLE" && !inEntities) return tableKind(text);
    const Kind kind = findKind(type);
    if (inEntities) return kind >= Kind::BlockBegin ? kind : Kind::Entity;
    return kind <= Kind::BlockEnd ? kind : Kind::Object;
}

std::optional<Kind> kindOfOneType(std::string_view type) {
    const Kind kind = findKind(type);
    const bool isOnlyOne =
        kind == Kind::BlockReference || kind == Kind::AttributeDefinition || kind == Kind::Text;
    return isOnlyOne ? std::optional<Kind>(kind) : std::nullopt;
}

ObjectBody::~ObjectBody() {
    if (ownsData) delete[] data;
}

void ObjectBody::setTags(const std::string& text) {
    if (store != nullptr) store->journal().textChanges(*this);
    placeText(*this, text);
    if (store == nullptr) return;
    ++store->revision;
    store->recordsChanged(kind);
}

std::wstring ObjectBody::decode(std::string_view bytes) const {
    return decodeText(bytes, store != nullptr ? store->encoding() : Encoding());
}

std::string ObjectBody::encode(std::wstring_view text) const {
    return encodeText(text, store != nullptr ? store->encoding() : Encoding());
}

std::string_view ObjectBody::type() const {
    // Always the first tag; read without the reader because listings ask for it often.
    const std::string_view all = tags();
    const std::size_t begin = all.find('\n');
    if (begin == std::string_view::npos) return {};
    const std::size_t end = all.find('\n', begin + 1);
    return all.substr(begin + 1, end == std::string_view::npos ? end : end - begin - 1);
}

}  // namespace host
