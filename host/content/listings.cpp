// Listings taken apart and put together.
#include "host/content/listings.h"

#include "host/content/dictionary_text.h"
#include "host/store/store.h"
#include "host/tags/tag_walk.h"

namespace host {
namespace {

bool isLightList(const ObjectBody& body) { return body.type() == "LIGHTLIST"; }

/// The last group 90 in front of the entries, which but in an XRECORD is their number, and where
/// they stand.
struct Entries {
    std::size_t countBegin = 0;
    std::size_t countEnd = 0;  ///< 0 when there is no such group
    std::size_t begin = 0;
    std::size_t end = 0;
    std::vector<ListedObject> objects;
};

Entries read(const ObjectBody& listing) {
    const bool lights = isLightList(listing);
    Entries found;
    TagWalk tag(listing.tags());
    while (tag.next()) {
        const bool inPart = tag.zone() == TagZone::Part || tag.zone() == TagZone::Data;
        if (!inPart || tag.depth() > 0) continue;
        if (tag.code() == 90 && found.objects.empty()) {
            found.countBegin = tag.begin();
            found.countEnd = found.begin = found.end = tag.end();
        } else if (found.countEnd != 0 && tag.code() == (lights ? 5 : 330)) {
            if (found.objects.empty()) found.begin = tag.begin();
            found.objects.push_back(
                {parseHandle(tag.value()).value_or(0), std::string(tag.stored())});
            found.end = tag.end();
        } else if (lights && tag.code() == 1 && !found.objects.empty()) {
            found.objects.back().tags += tag.stored();
            found.end = tag.end();
        } else if (!found.objects.empty()) {
            break;
        }
    }
    return found;
}

}  // namespace

std::uint64_t recomposedList(const Store& store) {
    const Index root = store.rootDictionary();
    if (root == kNoIndex) return 0;
    const auto entry = findEntry(store.at(root), L"ACDB_RECOMPOSE_DATA");
    return entry ? entry->handle : 0;
}

bool isListing(const ObjectBody& body, std::uint64_t recomposedList) {
    if (body.kind == Kind::Xrecord) return body.handle == recomposedList;
    return body.kind == Kind::Object &&
           (body.type() == "FIELDLIST" || body.type() == "SECTION_MANAGER" || isLightList(body));
}

std::vector<ListedObject> listedObjects(const ObjectBody& listing) { return read(listing).objects; }

ListedObject listedAs(const ListedObject& entry, std::uint64_t handle) {
    ListedObject made{handle, {}};
    TagReader reader(entry.tags);
    Tag tag;
    reader.next(tag);
    addHandleTag(made.tags, tag.code, handle);
    made.tags += entry.tags.substr(reader.end());
    return made;
}

std::string listingOf(const ObjectBody& listing, const std::vector<ListedObject>& objects) {
    const std::string_view text = listing.tags();
    const Entries former = read(listing);
    if (former.countEnd == 0) return std::string(text);
    std::string made(text.substr(0, former.begin));
    if (listing.kind != Kind::Xrecord) {
        std::string count;
        addTag(count, 90, static_cast<int>(objects.size()));
        made.replace(former.countBegin, former.countEnd - former.countBegin, count);
    }
    for (const ListedObject& object : objects)
        made += object.tags;
    return made += text.substr(former.end);
}

}  // namespace host
