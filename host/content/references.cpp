// Symbols that entities and records refer to by name.
#include "host/content/references.h"

namespace host {
namespace {

struct NamedReference {
    std::string_view type;  ///< empty: every entity
    int code;
    const char* table;
};

constexpr NamedReference kNames[] = {
    {"", 8, "LAYER"},
    {"", 6, "LTYPE"},
    {"INSERT", 2, "BLOCK_RECORD"},
    {"LEADER", 3, "DIMSTYLE"},
    {"TOLERANCE", 3, "DIMSTYLE"},
    {"TEXT", 7, "STYLE"},
    {"MTEXT", 7, "STYLE"},
    {"ATTRIB", 7, "STYLE"},
    {"ATTDEF", 7, "STYLE"},
};

constexpr int kHighestNaming = 8;  ///< of the codes above; asked for every tag

}  // namespace

BlockPicture blockPictureOf(std::string_view type) {
    if (type == "ACAD_TABLE") return BlockPicture::Table;
    const bool isDimension =
        type == "DIMENSION" || type == "ARC_DIMENSION" || type == "LARGE_RADIAL_DIMENSION";
    return isDimension ? BlockPicture::Dimension : BlockPicture::None;
}

const char* tableNamedBy(const ObjectBody& body, const TagWalk& tag) {
    const int code = tag.code();
    if (code == 1001) return "APPID";
    if (code == 1003) return "LAYER";
    if (code > kHighestNaming || !tag.own()) return nullptr;
    if (body.kind == Kind::LayerRecord) return code == 6 ? "LTYPE" : nullptr;
    if (body.kind == Kind::Object) {
        if (code == 6) return body.type() == "MLINESTYLE" ? "LTYPE" : nullptr;
        return code == 7 && body.type() == "TABLESTYLE" ? "STYLE" : nullptr;
    }
    if (!isEntityKind(body.kind) && body.kind != Kind::BlockBegin && body.kind != Kind::BlockEnd)
        return nullptr;
    if (code == 6 && tag.zone() > TagZone::Common) return nullptr;
    if (code == 2 || code == 3) {
        const BlockPicture picture = blockPictureOf(body.type());
        if (code == 2 && picture != BlockPicture::None) return "BLOCK_RECORD";
        if (code == 3 && picture == BlockPicture::Dimension) return "DIMSTYLE";
    }
    for (const NamedReference& each : kNames) {
        if (each.code == code && (each.type.empty() || each.type == body.type())) return each.table;
    }
    return nullptr;
}

}  // namespace host
