// LIST and AUDIT.
#include <string>
#include <vector>

#include "host/commands/commands.h"
#include "host/commands/open_drawing.h"
#include "host/content/dictionary_text.h"
#include "host/control/effects.h"
#include "host/dxf/check/drawing_check.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/current_drawing.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// "label X=.. Y=.. Z=.." for the point whose first tag has `code`; nothing without such a tag.
void listPoint(std::string_view text, int code, const wchar_t* label) {
    if (!findTag(text, code)) return;
    const auto coordinate = [&](int beyond) {
        return fromUtf8(textTag(text, code + beyond, "0.0"));
    };
    printLine(std::wstring(L"    ") + label + L" X=" + coordinate(0) + L" Y=" + coordinate(10) +
              L" Z=" + coordinate(20));
}

void listValue(const Store& store, std::string_view text, int code, const wchar_t* label) {
    const auto place = findTag(text, code);
    if (!place) return;
    printLine(std::wstring(L"    ") + label + L" " + store.decode(place->value));
}

/// Fields that say where and how large an entity is. A tag means different things in different
/// types, so each type lists its own.
void listGeometry(const Store& store, const ObjectBody& body) {
    const std::string_view type = body.type();
    const std::string_view text = body.tags();
    if (type == "LINE") {
        listPoint(text, 10, L"from point");
        listPoint(text, 11, L"to point");
        return;
    }
    const bool round = type == "CIRCLE" || type == "ARC";
    listPoint(text, 10, round ? L"center point" : L"at point");
    if (round) listValue(store, text, 40, L"radius");
    if (type == "TEXT" || type == "MTEXT" || type == "ATTDEF") {
        listValue(store, text, 40, L"height");
        listValue(store, text, 1, L"text");
    }
    if (type == "INSERT") listValue(store, text, 2, L"block");
}

/// Attributes of a block reference: "attribute TAG = text".
void listAttributes(const Store& store, const ObjectBody& body) {
    for (const ObjectBody& part : store.children(body.self)) {
        const auto tag = findTag(part.tags(), 2);
        const auto text = findTag(part.tags(), 1);
        if (part.kind != Kind::Attribute || !tag || !text) continue;
        printLine(L"    attribute " + store.decode(tag->value) + L" = " +
                  store.decode(text->value));
    }
}

/// Keys that applications keep in the entity's extension dictionary: "data KEY".
void listApplicationData(const Store& store, const ObjectBody& body) {
    const ObjectBody* dictionary = store.byHandle(extensionDictionaryHandle(body.tags()));
    if (dictionary == nullptr || dictionary->erased) return;
    DictionaryReader entries(dictionary->tags());
    for (DictionaryEntry entry; entries.next(entry);) {
        printLine(L"    data " + store.decode(entry.key));
    }
}

CommandStatus runList(Store& store) {
    std::vector<AcDbObjectId> selection;
    if (promptSelection(selection) == PromptStatus::Cancel) {
        return CommandStatus::Cancelled;
    }
    for (const AcDbObjectId id : selection) {
        const ObjectBody* body = Store::resolve(id);
        if (body == nullptr || body->erased) continue;
        printLine(fromUtf8(body->type()) + L" Layer: \"" + layerName(*body) + L"\" Handle = " +
                  handleText(*body));
        listGeometry(store, *body);
        listAttributes(store, *body);
        listApplicationData(store, *body);
    }
    return CommandStatus::Done;
}

/// Prints what the drawing check finds; Failed when the drawing is damaged.
CommandStatus runAudit(Store& store) {
    long errors = 0;
    const std::vector<Finding> findings = checkDrawing(store);
    for (const Finding& finding : findings) {
        const bool isError = finding.severity == Severity::Error;
        errors += isError ? 1 : 0;
        printLine((isError ? L"" : L"note: ") + fromUtf8(finding.text));
    }
    printLine(std::to_wstring(errors) + L" error(s), " +
              std::to_wstring(static_cast<long>(findings.size()) - errors) + L" note(s).");
    if (errors == 0) return CommandStatus::Done;
    noteProblem(L"the drawing is damaged: " + std::to_wstring(errors) + L" error(s)");
    return CommandStatus::Failed;
}

}  // namespace

const CommandTable kInquiryCommands = {
    {L"LIST", ACRX_CMD_USEPICKSET, onDrawing<runList>,
     L"type, layer, handle, geometry and data of entities"},
    {L"AUDIT", 0, onDrawing<runAudit>, L"checks the drawing for damage, changes nothing"},
};

}  // namespace host
