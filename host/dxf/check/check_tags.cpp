// The drawing check, tag by tag: numbers, pointers, names, brackets.
#include "host/dxf/check/check_context.h"

namespace host {
namespace {

std::string named(int code) { return "group " + std::to_string(code); }

void checkNumber(CheckContext& context, const ObjectBody& body, const Tag& tag, TagType type) {
    switch (type) {
        case TagType::Point:
        case TagType::Real:
            if (!parseReal(tag.value)) {
                context.error(body, named(tag.code) + " is no finite number: \"" +
                                        std::string(tag.value) + "\"");
            }
            break;
        case TagType::Int16:
        case TagType::Int32:
        case TagType::Int64:
        case TagType::Bool:
            if (!parseInteger(tag.value)) {
                context.error(
                    body, named(tag.code) + " is no integer: \"" + std::string(tag.value) + "\"");
            }
            break;
        default:
            break;
    }
}

/// Owners and hard pointers must resolve; the host opens what they name.
bool mustResolve(int code) { return code >= 340 && code <= 369; }

void checkPointer(CheckContext& context, const ObjectBody& body, const Tag& tag) {
    const auto handle = parseHandle(tag.value);
    if (!handle) {
        const bool empty = trimmed(tag.value).empty();
        context.error(
            body, named(tag.code) + (empty ? " is an empty pointer"
                                           : " is no handle: \"" + std::string(tag.value) + "\""));
        return;
    }
    if (*handle == 0 || context.live(*handle) != nullptr) return;
    const std::string text =
        named(tag.code) + " points at " + formatHandle(*handle) + ", which is not in the drawing";
    if (mustResolve(tag.code)) {
        context.error(body, text);
    } else {
        context.note(body, text);
    }
}

void checkName(CheckContext& context, const ObjectBody& body, const char* table,
               std::string_view name) {
    if (context.isDefined(table, name)) return;
    context.error(body, std::string(table) + " \"" + std::string(name) + "\" is not defined");
}

/// Table whose records a tag names, or null. `ownPart` counts from the marker behind the common
/// ones on.
const char* namedTable(const ObjectBody& body, std::string_view type, int code, bool ownPart) {
    if (code == 1001) return "APPID";
    const bool inBlock =
        isEntityKind(body.kind) || body.kind == Kind::BlockBegin || body.kind == Kind::BlockEnd;
    if (!inBlock) return body.kind == Kind::LayerRecord && code == 6 ? "LTYPE" : nullptr;
    switch (code) {
        case 8:
            return "LAYER";
        case 6:
            return ownPart ? nullptr : "LTYPE";
        case 7:
            return type == "TEXT" || type == "MTEXT" || type == "ATTRIB" || type == "ATTDEF"
                       ? "STYLE"
                       : nullptr;
        case 3:
            return type == "DIMENSION" || type == "LEADER" ? "DIMSTYLE" : nullptr;
        case 2:
            return type == "INSERT" || type == "DIMENSION" ? "BLOCK_RECORD" : nullptr;
        default:
            return nullptr;
    }
}

}  // namespace

void checkTags(CheckContext& context, ObjectSummary& summary) {
    const ObjectBody& body = *summary.body;
    summary.hasOwner = summary.attributesFollow = false;
    summary.owner = summary.extensionDictionary = 0;
    summary.markers.clear();
    TagReader reader(summary.text);
    Tag tag;
    int depth = 0;
    bool ownPart = false;
    bool inExtension = false;
    while (reader.next(tag)) {
        if (tag.code == 102 && !tag.value.empty() && tag.value[0] == '{') {
            ++depth;
            inExtension = tag.value == "{ACAD_XDICTIONARY";
            continue;
        }
        if (tag.code == 102 && !tag.value.empty() && tag.value[0] == '}') {
            if (--depth < 0) context.error(body, "a bracket (102) is closed that is not open");
            if (depth < 0) depth = 0;
            inExtension = false;
            continue;
        }
        if (tag.code == 100 && depth == 0) {
            summary.markers.push_back(tag.value);
            ownPart = ownPart || (tag.value != "AcDbEntity" && tag.value != "AcDbSymbolTable" &&
                                  tag.value != "AcDbSymbolTableRecord");
        }
        if (tag.value.find('\0') != std::string_view::npos) {
            context.error(body, named(tag.code) + " holds a NUL");
        }
        if (inExtension && tag.code == 360) {
            summary.extensionDictionary = parseHandle(tag.value).value_or(0);
        }
        if (tag.code == 330 && depth == 0 && !ownPart && !summary.hasOwner) {
            // Owners are judged by the place of the object, not as pointers.
            summary.hasOwner = true;
            summary.owner = parseHandle(tag.value).value_or(0);
            continue;
        }
        if (tag.code == 66 && depth == 0) {
            summary.attributesFollow = parseInteger(tag.value).value_or(0) != 0;
        }
        if (isPointerCode(tag.code)) {
            checkPointer(context, body, tag);
            continue;
        }
        checkNumber(context, body, tag, tagTypeOf(tag.code));
        const char* const table = namedTable(body, summary.type, tag.code, ownPart);
        const bool empty = tag.value.empty() && summary.type == "DIMENSION";
        if (table != nullptr && depth == 0 && !empty) checkName(context, body, table, tag.value);
    }
    if (depth > 0) context.error(body, "a bracket (102) is never closed");
}

}  // namespace host
