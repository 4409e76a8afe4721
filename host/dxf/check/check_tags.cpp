// The drawing check, tag by tag: numbers, pointers, names, brackets.
#include "host/content/references.h"
#include "host/dxf/check/check_context.h"
#include "host/tags/tag_codes.h"

namespace host {
namespace {

std::string named(int code) { return "group " + std::to_string(code); }

void checkNumber(CheckContext& context, const ObjectBody& body, const Tag& tag) {
    const TagType type = tagTypeOf(tag.code);
    const char* wanted = nullptr;
    if (type >= TagType::Point && type <= TagType::Real) {
        if (!parseReal(tag.value)) wanted = " is no finite number: \"";
    } else if (type >= TagType::Int16 && type <= TagType::Bool) {
        if (!parseInteger(tag.value)) wanted = " is no integer: \"";
    }
    if (wanted != nullptr)
        context.error(body, named(tag.code) + wanted + std::string(tag.value) + "\"");
}

/// Owners and hard pointers must resolve; the host opens what they name. The reactor that an image
/// owns is made anew.
bool mustResolve(const ObjectSummary& summary, const TagWalk& tag) {
    const bool image = summary.type == "IMAGE" || summary.type == "WIPEOUT";
    return tag.code() >= 340 && tag.code() <= 369 && !(image && tag.code() == 360 && tag.own());
}

void checkPointer(CheckContext& context, const ObjectSummary& summary, const TagWalk& walk) {
    const ObjectBody& body = *summary.body;
    const Tag& tag = walk.tag();
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
    context.add(mustResolve(summary, walk) ? Severity::Error : Severity::Note, body, text);
}

void checkName(CheckContext& context, const ObjectBody& body, const char* table,
               std::string_view name) {
    if (context.isDefined(table, name)) return;
    // A layer that is missing is made on loading, a style of tables or multilines has a default.
    const bool mended = table == std::string_view("LAYER") || body.kind == Kind::Object;
    context.add(mended ? Severity::Note : Severity::Error, body,
                std::string(table) + " \"" + std::string(name) + "\" is not defined");
}

/// Notes what the tag tells the other parts of the check.
void summarize(ObjectSummary& summary, const TagWalk& tag) {
    if (tag.role() == TagRole::Marker)
        summary.markers.append(summary.markers.empty() ? "" : ", ").append(tag.value());
    if (tag.role() == TagRole::Owner) {
        summary.hasOwner = true;
        summary.owner = parseHandle(tag.value()).value_or(0);
    }
    if (tag.code() == 66 && tag.own())
        summary.attributesFollow = parseInteger(tag.value()).value_or(0) != 0;
    if (tag.code() == 360 && tag.bracket() == Bracket::ExtensionDictionary)
        summary.extensionDictionary = parseHandle(tag.value()).value_or(0);
}

void checkTag(CheckContext& context, const ObjectSummary& summary, const TagWalk& tag) {
    const ObjectBody& body = *summary.body;
    if (tag.value().find('\0') != std::string_view::npos)
        context.error(body, named(tag.code()) + " holds a NUL");
    if (tag.role() == TagRole::ClosesNone)
        context.error(body, "a bracket (102) is closed that is not open");
    // Owners are judged by the place of the object, not as pointers.
    if (tag.role() == TagRole::Owner) return;
    if (isReferenceCode(tag.code())) return checkPointer(context, summary, tag);
    checkNumber(context, body, tag.tag());
    const char* const table = tableNamedBy(body, tag);
    const bool mayBeEmpty = summary.type == "DIMENSION" || body.kind == Kind::Object;
    const bool empty = tag.value().empty() && mayBeEmpty;
    if (table != nullptr && tag.depth() == 0 && !empty)
        checkName(context, body, table, tag.value());
}

}  // namespace

void checkTags(CheckContext& context, ObjectSummary& summary) {
    summary.hasOwner = summary.attributesFollow = false;
    summary.owner = summary.extensionDictionary = 0;
    summary.markers.clear();
    TagWalk tag(summary.text);
    while (tag.next()) {
        summarize(summary, tag);
        checkTag(context, summary, tag);
    }
    if (tag.leavesOpen()) context.error(*summary.body, "a bracket (102) is never closed");
}

}  // namespace host
