// Edits of an object's tags: identity, encoding, single values, the extension dictionary's link.
#include "host/store/body_text.h"

#include <algorithm>
#include <cstring>

#include "host/store/object_body.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {

namespace {

constexpr std::string_view kDictionaryBracket = "{ACAD_XDICTIONARY";

/// Bytes of a text; an empty one when the tag is missing.
struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool found = false;
};

/// The tags that say who an object is, in front of the first subclass marker.
struct Head {
    Span type;
    Span handle;
    Span owner;
    std::size_t end = 0;  ///< where the first marker begins; behind the type when there is none
};

Head readHead(std::string_view text) {
    Head head;
    TagReader reader(text);
    Tag tag;
    int handleCode = 5;
    bool inBracket = false;
    while (reader.next(tag)) {
        const Span here{reader.begin(), reader.end(), true};
        if (!head.type.found) {
            head.type = here;
            head.end = here.end;
            if (tag.value == "DIMSTYLE") handleCode = 105;
        } else if (tag.code == 102) {
            inBracket = !tag.value.empty() && tag.value.front() == '{';
        } else if (inBracket) {
            continue;
        } else if (tag.code == 100) {
            head.end = here.begin;
            break;
        } else if (tag.code == handleCode && !head.handle.found) {
            head.handle = here;
        } else if (tag.code == 330 && !head.owner.found) {
            head.owner = here;
        }
    }
    return head;
}

/// Where tags of the object's own have to go: before its extended data.
std::size_t ownEnd(std::string_view text) {
    TagReader reader(text);
    Tag tag;
    while (reader.next(tag))
        if (tag.code >= 1000) return reader.begin();
    return text.size();
}

/// The bracket that names the extension dictionary, with both its 102 tags.
Span findBracket(std::string_view text, std::uint64_t* handle = nullptr) {
    Span bracket;
    if (text.find(kDictionaryBracket) == std::string_view::npos) return bracket;
    TagReader reader(text);
    Tag tag;
    bool inside = false;
    while (reader.next(tag)) {
        if (inside && tag.code == 360 && handle != nullptr)
            *handle = parseHandle(tag.value).value_or(0);
        if (tag.code != 102) continue;
        if (inside) return {bracket.begin, reader.end(), true};
        inside = tag.value == kDictionaryBracket;
        bracket.begin = reader.begin();
    }
    return {};
}

}  // namespace

void placeText(ObjectBody& body, std::string_view text) {
    char* const copy = new char[text.size() + 1];
    std::memcpy(copy, text.data(), text.size());
    if (body.ownsData) delete[] body.data;
    body.data = copy;
    body.size = static_cast<std::uint32_t>(text.size());
    body.ownsData = true;
}

std::string withIdentity(std::string_view text, std::uint64_t handle, std::uint64_t owner) {
    const Head head = readHead(text);
    std::string result(text.substr(0, head.type.end));
    result.reserve(text.size() + 48);
    const bool isDimStyle = text.substr(0, head.type.end).find("DIMSTYLE") != text.npos;
    addHandleTag(result, isDimStyle ? 105 : 5, handle);
    // What stands between the type and the first marker keeps its order around the two tags.
    std::size_t at = head.type.end;
    const auto copyUpTo = [&](std::size_t end) {
        if (end > at) result.append(text.substr(at, end - at));
        at = std::max(at, end);
    };
    const auto skip = [&](const Span& span) {
        if (!span.found) return;
        copyUpTo(span.begin);
        at = span.end;
    };
    const Span& first = head.handle.begin <= head.owner.begin ? head.handle : head.owner;
    const Span& second = &first == &head.handle ? head.owner : head.handle;
    skip(first);
    skip(second);
    copyUpTo(head.end);
    addHandleTag(result, 330, owner);
    result.append(text.substr(at));
    return result;
}

std::string recoded(std::string_view text, const Encoding& from, const Encoding& to) {
    std::string result;
    result.reserve(text.size());
    TagReader reader(text);
    Tag tag;
    while (reader.next(tag))
        addTag(result, tag.code, encodeText(decodeText(tag.value, from), to));
    return result;
}

void setTag(std::string& text, int code, std::string_view value) {
    if (const auto place = findTag(text, code)) {
        replaceValue(text, *place, value);
        return;
    }
    std::string tag;
    addTag(tag, code, value);
    text.insert(ownEnd(text), tag);
}

void setTag(std::string& text, int code, int value) { setTag(text, code, std::to_string(value)); }

long long integerTag(std::string_view text, int code, long long otherwise) {
    const auto place = findTag(text, code);
    return place ? parseInteger(place->value).value_or(otherwise) : otherwise;
}

double realTag(std::string_view text, int code, double otherwise) {
    const auto place = findTag(text, code);
    return place ? parseReal(place->value).value_or(otherwise) : otherwise;
}

std::uint64_t extensionDictionaryHandle(std::string_view text) {
    std::uint64_t handle = 0;
    return findBracket(text, &handle).found ? handle : 0;
}

void setExtensionDictionary(std::string& text, std::uint64_t handle) {
    const Span old = findBracket(text);
    if (old.found) text.erase(old.begin, old.end - old.begin);
    if (handle == 0) return;
    std::string bracket;
    addTag(bracket, 102, kDictionaryBracket);
    addHandleTag(bracket, 360, handle);
    addTag(bracket, 102, "}");
    const Head head = readHead(text);
    text.insert(head.handle.found ? head.handle.end : head.type.end, bracket);
}

}  // namespace host
