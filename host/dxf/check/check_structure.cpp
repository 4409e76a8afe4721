// The drawing check: blocks, layouts and dictionaries.
#include "host/content/dictionary_text.h"
#include "host/dxf/check/check_context.h"
#include "host/store/symbol_records.h"

namespace host {
namespace {

void checkEntry(CheckContext& context, const ObjectSummary& summary, const std::string& key,
                std::uint64_t handle, bool isExtension) {
    const ObjectBody& dictionary = *summary.body;
    const ObjectBody* const entry = context.live(handle);
    if (entry == nullptr) {
        // A dangling pointer is reported already; a null one is no pointer but no entry either.
        if (handle == 0) context.error(dictionary, "entry \"" + key + "\" names nothing");
        return;
    }
    if (entry->owner == dictionary.self) return;
    const std::string text =
        "entry \"" + key + "\" is " + nameOf(*entry) + ", which another object owns";
    context.add(isExtension ? Severity::Error : Severity::Note, dictionary, text);
}

void checkEntries(CheckContext& context, const ObjectSummary& summary) {
    const ObjectBody& dictionary = *summary.body;
    const ObjectLinks& owner = context.links(context.store.at(dictionary.owner));
    const bool isExtension = dictionary.owner != kNoIndex &&
                             owner.firstEntry != dictionary.handle &&
                             owner.extensionDictionary == dictionary.handle;
    DictionaryReader entries(summary.text);
    for (DictionaryEntry entry; entries.next(entry);)
        checkEntry(context, summary, std::string(entry.key), entry.handle, isExtension);
}

}  // namespace

void checkDictionaries(CheckContext& context, const ObjectSummary& summary) {
    const ObjectBody& body = *summary.body;
    if (summary.extensionDictionary != 0) {
        const ObjectBody* const dictionary = context.live(summary.extensionDictionary);
        const std::string name = formatHandle(summary.extensionDictionary);
        if (dictionary != nullptr && dictionary->kind != Kind::Dictionary) {
            context.error(body, "the extension dictionary " + name + " is a " +
                                    std::string(dictionary->type()));
        } else if (dictionary != nullptr && dictionary->owner != body.self) {
            context.error(body, "the extension dictionary " + name + " is owned by another object");
        }
    }
    if (body.kind == Kind::Dictionary) checkEntries(context, summary);
}

void checkBlockRecord(CheckContext& context, const ObjectSummary& summary) {
    const ObjectBody& record = *summary.body;
    const std::wstring name = symbolName(record);
    const BlockParts parts = context.store.blockParts(record.self);
    if (!context.isLive(parts.begin) || !context.isLive(parts.end)) {
        context.error(record,
                      "there is no BLOCK of the name \"" + context.store.encode(name) + "\"");
    } else if (foldCase(symbolName(context.store.at(parts.begin))) != foldCase(name)) {
        context.error(record, "its BLOCK has another name");
    }
    if (!isSpaceName(name)) return;
    const std::uint64_t layout = context.links(record).layout;
    const ObjectBody* const object = context.live(layout);
    if (object == nullptr || object->type() != "LAYOUT") {
        if (context.hasLayouts) {
            context.error(record, "the space has no layout");
        } else {
            context.note(record, "the space has no layout, nor has the drawing any");
        }
    } else if (context.links(*object).block != record.handle) {
        context.error(record, "its layout " + formatHandle(layout) + " does not point back");
    }
}

void checkLayout(CheckContext& context, const ObjectSummary& summary) {
    const std::uint64_t handle = context.links(*summary.body).block;
    const ObjectBody* const record = context.live(handle);
    if (record == nullptr || record->kind != Kind::BlockRecord) {
        context.error(*summary.body, "the layout has no block record");
    } else if (context.links(*record).layout != summary.body->handle) {
        context.error(*summary.body,
                      "its block record " + formatHandle(handle) + " does not point back");
    }
}

}  // namespace host
