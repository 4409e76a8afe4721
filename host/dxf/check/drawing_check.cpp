// The check of a drawing: the walk over all objects, handles, the seed.
#include "host/dxf/check/drawing_check.h"

#include "host/dxf/check/check_context.h"
#include "host/dxf/load/load_drawing.h"
#include "host/store/data_records.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

void checkHandles(CheckContext& context) {
    const Store& store = context.store;
    const auto value = store.headerValue("$HANDSEED");
    const auto seed = value ? parseHandle(*value) : std::nullopt;
    if (!seed) context.error("$HANDSEED is missing or no handle");
    std::uint64_t highest = 0;
    for (Index index = 1; index <= store.count(); ++index) {
        const ObjectBody& body = store.at(index);
        if (body.size == 0 || !context.isLive(index)) continue;
        if (body.handle == 0) {
            context.error(body, "the handle is 0");
        } else if (store.byHandle(body.handle) != &body) {
            context.error(body, "the handle belongs to another object too");
        }
        if (handleTag(body.tags(), body.type() == "DIMSTYLE" ? 105 : 5) != body.handle) {
            context.error(body, "the handle in the groups is another one");
        }
        if (!body.ownsData) highest = std::max(highest, body.handle);
    }
    if (seed && *seed > std::max(kHighestHandle, highest + 1)) {
        context.error("$HANDSEED " + formatHandle(*seed) + " leaves no room: handles end at " +
                      formatHandle(kHighestHandle));
    }
    if (seed && *seed <= highest) {
        context.error("$HANDSEED " + formatHandle(*seed) + " is not above the highest handle " +
                      formatHandle(highest));
    }
}

void checkHeaderNames(CheckContext& context) {
    static const char* const variables[][2] = {
        {"$CLAYER", "LAYER"}, {"$CELTYPE", "LTYPE"}, {"$TEXTSTYLE", "STYLE"}};
    for (const auto& [variable, table] : variables) {
        const auto name = context.store.headerValue(variable);
        if (name && !context.isDefined(table, *name)) {
            context.error(std::string(variable) + " names " + table + " \"" + std::string(*name) +
                          "\", which is not defined");
        }
    }
}

/// From AC1027 on the geometry of solids stands in records of the section ACDSDATA.
void checkGeometry(CheckContext& context, const ObjectSummary& summary) {
    const auto part = subclassPart(summary.text, "AcDbModelerGeometry");
    if (!part || context.store.version() < "AC1027" || findTag(*part, 1)) return;
    if (!context.store.dataRecords().has(summary.body->self))
        context.error(*summary.body, "its geometry is missing: no record in ACDSDATA names it");
}

void checkDataRecords(CheckContext& context) {
    for (const DataPiece& piece : context.store.dataRecords().pieces()) {
        const std::uint64_t handle = parseHandle(piece.handle).value_or(0);
        if (piece.owner == kNoIndex && handle != 0)
            context.note("a record in ACDSDATA names " + formatHandle(handle) +
                         ", which is not in the drawing");
    }
}

bool isTableName(const Store& store, Index index, const char* name) {
    const Index table = store.at(index).owner;
    return table != kNoIndex && table == store.table(name);
}

void checkObject(CheckContext& context, ObjectSummary& summary) {
    checkTags(context, summary);
    checkSubclasses(context, summary);
    checkOwner(context, summary);
    checkDictionaries(context, summary);
    const ObjectBody& body = *summary.body;
    if (isEntityKind(body.kind)) {
        checkSequence(context, summary);
        checkGeometry(context, summary);
    }
    if (body.kind == Kind::BlockRecord && isTableName(context.store, body.self, "BLOCK_RECORD")) {
        checkBlockRecord(context, summary);
    }
    if (summary.type == "LAYOUT") checkLayout(context, summary);
}

}  // namespace

std::vector<Finding> checkDrawing(const Store& store) {
    CheckContext context(store);
    checkHandles(context);
    checkHeaderNames(context);
    ObjectSummary summary;
    for (Index index = 1; index <= store.count(); ++index) {
        const ObjectBody& body = store.at(index);
        if (body.size == 0 || !context.isLive(index)) continue;
        summary.body = &body;
        summary.text = context.references.cleaned(body);
        summary.type = body.type();
        checkObject(context, summary);
    }
    checkDataRecords(context);
    if (context.ownersAbsent > 0) {
        context.note(std::to_string(context.ownersAbsent) +
                     " objects have no owner group (330); their place tells the owner");
    }
    return std::move(context.findings);
}

std::optional<std::vector<Finding>> checkFile(const std::string& path, DxfError& error,
                                              const ProgressFunction& progress) {
    std::vector<Finding> findings;
    const std::unique_ptr<Store> store = loadDrawing(path, error, progress, &findings);
    if (store == nullptr) return std::nullopt;
    for (Finding& finding : checkDrawing(*store))
        findings.push_back(std::move(finding));
    return findings;
}

}  // namespace host
