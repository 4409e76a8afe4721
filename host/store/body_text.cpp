// Edits of an object's tags: identity, encoding, the extension dictionary's link.
#include "host/store/body_text.h"

#include <cstring>

#include "host/store/object_body.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"
#include "host/tags/tag_walk.h"

namespace host {

namespace {

constexpr std::string_view kDictionaryBracket = "{ACAD_XDICTIONARY";

/// The bracket that names the extension dictionary, with both its 102 tags, and the handle in it.
struct DictionaryLink {
    std::size_t begin = 0;
    std::size_t end = 0;  ///< 0 when there is none
    std::uint64_t handle = 0;
};

DictionaryLink findDictionaryLink(std::string_view text) {
    if (text.find(kDictionaryBracket) == std::string_view::npos) return {};
    DictionaryLink link;
    TagWalk walk(text);
    while (walk.next()) {
        if (walk.bracket() != Bracket::ExtensionDictionary) continue;
        if (walk.role() == TagRole::Opens && walk.depth() == 1) link.begin = walk.begin();
        if (walk.code() == 360) link.handle = parseHandle(walk.value()).value_or(0);
        if (walk.role() != TagRole::Closes || walk.depth() > 1) continue;
        link.end = walk.end();
        return link;
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
    std::string result;
    result.reserve(text.size() + 48);
    // The handle goes behind the type, the owner to the end of the head. What has no markers has
    // no end of the head: there the owner follows the handle.
    std::size_t ownerAt = 0;
    bool headEnded = false;
    const bool hasMarkers = findTag(text, 100).has_value();
    TagWalk walk(text);
    while (walk.next() && walk.zone() <= TagZone::Common) {
        if (walk.role() == TagRole::Handle || walk.role() == TagRole::Owner) continue;
        // A second owner in the head would stand before the new one and be taken for it.
        if (hasMarkers && walk.code() == 330 && walk.own() && walk.zone() == TagZone::Head)
            continue;
        if (walk.role() == TagRole::Marker && !headEnded) {
            headEnded = true;
            ownerAt = result.size();
        }
        result += walk.stored();
        if (walk.role() != TagRole::Type) continue;
        addHandleTag(result, walk.value() == "DIMSTYLE" ? 105 : 5, handle);
        ownerAt = result.size();
    }
    if (!headEnded && walk.role() == TagRole::Marker) ownerAt = result.size();
    result += text.substr(walk.begin());
    std::string link;
    addHandleTag(link, 330, owner);
    return result.insert(ownerAt, link);
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

std::uint64_t extensionDictionaryHandle(std::string_view text) {
    return findDictionaryLink(text).handle;
}

void setExtensionDictionary(std::string& text, std::uint64_t handle) {
    const DictionaryLink old = findDictionaryLink(text);
    if (old.end != 0) text.erase(old.begin, old.end - old.begin);
    if (handle == 0) return;
    const std::string bracket =
        storedTags({{102, kDictionaryBracket}, {360, formatHandle(handle)}, {102, "}"}});
    std::size_t place = 0;
    TagWalk walk(text);
    while (walk.next() && walk.zone() == TagZone::Head)
        if (walk.role() == TagRole::Type || walk.role() == TagRole::Handle) place = walk.end();
    text.insert(place, bracket);
}

}  // namespace host
