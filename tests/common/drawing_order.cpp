// Renders drawing order from the stored tags, without the module's own code.
#include "common/drawing_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "host/store/body_text.h"
#include "host/tags/tag_values.h"
#include "host/text/text_codec.h"

namespace tests {

namespace {

using host::Index;
using host::kNoIndex;
using host::ObjectBody;
using host::Store;

std::string value(const ObjectBody& body, int code) {
    return std::string(host::rawTag(body.tags(), code));
}

bool endsWith(const std::string& text, const std::string& ending) {
    return text.size() >= ending.size() &&
           text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

std::vector<std::string> attributeTexts(const Store& store, const ObjectBody& insert) {
    std::vector<std::string> texts;
    for (const ObjectBody& child : store.children(insert.self))
        texts.push_back(value(child, 1));
    return texts;
}

bool isMarker(const ObjectBody& body, const std::string& suffix) {
    return body.type() == "INSERT" && endsWith(value(body, 2), suffix);
}

/// True when the entity's own extension dictionary holds a group record with its text.
bool hasGroupRecord(const Store& store, const ObjectBody& entity) {
    const ObjectBody* dictionary = store.byHandle(host::extensionDictionaryHandle(entity.tags()));
    if (dictionary == nullptr || dictionary->erased) return false;
    host::TagReader reader(dictionary->tags());
    host::Tag tag;
    std::string key;
    while (reader.next(tag)) {
        if (tag.code == 3) key = tag.value;
        if ((tag.code != 350 && tag.code != 360) || !endsWith(key, "_GROUP")) continue;
        const auto handle = host::parseHandle(tag.value);
        const ObjectBody* record = store.byHandle(handle.value_or(0));
        const std::string prefix = key.substr(0, key.size() - 6);
        return record != nullptr && !record->erased && record->type() == "XRECORD" &&
               value(*record, 1) == prefix + " Group entity";
    }
    return false;
}

/// The next live end marker behind a begin marker, or nothing.
const ObjectBody* endBehind(const Store& store, const ObjectBody& begin) {
    for (Index index = store.nextLive(begin); index != kNoIndex;
         index = store.nextLive(store.at(index))) {
        if (isMarker(store.at(index), "_GE")) return &store.at(index);
    }
    return nullptr;
}

std::string wordFor(const Store& store, const ObjectBody& body, std::uint64_t& openBegin) {
    const std::vector<std::string> texts =
        body.type() == "INSERT" ? attributeTexts(store, body) : std::vector<std::string>();
    if (isMarker(body, "_GB")) {
        openBegin = body.handle;
        const ObjectBody* end = endBehind(store, body);
        const bool linked =
            end != nullptr && !texts.empty() && texts[0] == host::formatHandle(end->handle);
        const std::string count = texts.size() > 1 ? texts[1] : "";
        return "begin(" + count + (linked ? ")" : ")?");
    }
    if (isMarker(body, "_GE")) {
        const bool linked = !texts.empty() && texts[0] == host::formatHandle(openBegin);
        return linked ? "end" : "end?";
    }
    std::string word(body.type());
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return hasGroupRecord(store, body) ? word + "*" : word;
}

}  // namespace

std::string contentOf(const host::ObjectBody& entity) {
    std::string content;
    bool bracket = false;
    host::TagReader reader(entity.tags());
    host::Tag tag;
    while (reader.next(tag)) {
        if (tag.code == 102) bracket = tag.value[0] == '{';
        const bool own = tag.code == 5 || tag.code == 102 || tag.code == 330 || bracket;
        if (!own) content += std::to_string(tag.code) + '=' + std::string(tag.value) + '|';
    }
    return content;
}

std::string drawingOrder(const Store& store, Index space) {
    std::string line;
    std::uint64_t openBegin = 0;
    for (const ObjectBody& entity : store.children(space)) {
        if (!line.empty()) line += ' ';
        line += wordFor(store, entity, openBegin);
    }
    return line;
}

std::string markerPlaces(const Store& store) {
    std::string text;
    for (const ObjectBody& body : store.children(store.modelSpace())) {
        if (body.type() != "INSERT") continue;
        text += (text.empty() ? "" : " ") + value(body, 10) + "(";
        for (const ObjectBody& part : store.children(body.self))
            text += value(part, 10) + (part.self == store.lastLive(body.self) ? ")" : " ");
    }
    return text;
}

ObjectBody& entityOf(const Store& store, const std::string& type, int occurrence, Index space) {
    for (ObjectBody& entity : store.children(space == kNoIndex ? store.modelSpace() : space))
        if (entity.type() == type && occurrence-- == 0) return entity;
    ADD_FAILURE() << "no " << type;
    return store.at(0);
}

std::wstring handleOf(AcDbObjectId id) {
    return host::fromUtf8(host::formatHandle(id.handle().value()));
}

std::wstring handent(AcDbObjectId id) { return L"(handent \"" + handleOf(id) + L"\")"; }

}  // namespace tests
