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
    {"DIMENSION", 2, "BLOCK_RECORD"},
    {"DIMENSION", 3, "DIMSTYLE"},
    {"ARC_DIMENSION", 2, "BLOCK_RECORD"},
    {"ARC_DIMENSION", 3, "DIMSTYLE"},
    {"LARGE_RADIAL_DIMENSION", 2, "BLOCK_RECORD"},
    {"LARGE_RADIAL_DIMENSION", 3, "DIMSTYLE"},
    {"ACAD_TABLE", 2, "BLOCK_RECORD"},
    {"LEADER", 3, "DIMSTYLE"},
    {"TOLERANCE", 3, "DIMSTYLE"},
    {"TEXT", 7, "STYLE"},
    {"MTEXT", 7, "STYLE"},
    {"ATTRIB", 7, "STYLE"},
    {"ATTDEF", 7, "STYLE"},
};

constexpr int kHighestNaming = 8;  ///< of the codes above; asked for every tag

}  // namespace

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
    for (const NamedReference& each : kNames) {
        if (each.code == code && (each.type.empty() || each.type == body.type())) return each.table;
    }
    return nullptr;
}

}  // namespace host
