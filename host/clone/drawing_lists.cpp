// Listings and class records of a drawing that clones came into.
#include "host/clone/drawing_lists.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/content/dictionary_text.h"
#include "host/content/listings.h"
#include "host/store/store.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

/// The same listing in another drawing; made when it is missing. Null without a root dictionary.
ObjectBody* listingIn(Store& to, const ObjectBody& listing, std::wstring_view key) {
    if (listing.store == &to) return &to.at(listing.self);
    if (to.rootDictionary() == kNoIndex) return nullptr;
    ObjectBody& root = to.at(to.rootDictionary());
    if (const auto entry = findEntry(root, key)) {
        ObjectBody* const found = to.byHandle(entry->handle);
        return found != nullptr && !found->erased ? found : nullptr;
    }
    ObjectBody& made = to.duplicate(listing, root.self);
    to.appendChild(to.objectsList(), made);
    addEntry(root, key, made.handle);
    made.setTags(listingOf(made, {}));
    // Its reactors are objects of the other drawing.
    std::string own;
    TagWalk tag(made.tags());
    while (tag.next())
        if (tag.bracket() == Bracket::None) own += tag.stored();
    made.setTags(own);
    return &made;
}

bool isClasses(const Section& section) { return section.name == "CLASSES"; }

/// Class records by the type that each is of.
using Classes = std::unordered_map<std::string_view, std::string_view>;
Classes classesOf(const Store& store) {
    Classes classes;
    const auto& sections = store.sections();
    const auto section = std::find_if(sections.begin(), sections.end(), isClasses);
    if (section == sections.end()) return classes;
    const std::string_view text = section->text;
    std::size_t begin = 0;
    std::string_view type;
    const auto endRecord = [&](std::size_t end) {
        if (!type.empty()) classes.emplace(type, text.substr(begin, end - begin));
        begin = end;
        type = {};
    };
    TagReader reader(text);
    for (Tag tag; reader.next(tag);) {
        if (tag.code == 0) endRecord(reader.begin());
        if (tag.code == 1 && type.empty()) type = trimmed(tag.value);
    }
    endRecord(text.size());
    return classes;
}

/// A record as a version writes it: the older ones do not count instances (91).
std::string classIn(const std::string& version, std::string_view record) {
    std::string text(record);
    const auto instances = findTag(text, 91);
    if (instances && version < "AC1018")
        text.erase(instances->begin, instances->end - instances->begin);
    return text;
}

}  // namespace

void enterInListings(const Store& from, Store& to, const CloneMap& map) {
    if (from.rootDictionary() == kNoIndex) return;
    const std::uint64_t recomposed = recomposedList(from);
    const std::string entries(from.at(from.rootDictionary()).tags());
    DictionaryReader reader(entries);
    for (DictionaryEntry entry; reader.next(entry);) {
        const ObjectBody* const listing = from.byHandle(entry.handle);
        if (listing == nullptr || listing->erased || !isListing(*listing, recomposed)) continue;
        std::vector<ListedObject> clones;
        for (const ListedObject& each : listedObjects(*listing)) {
            const ObjectBody* const source = from.byHandle(each.handle);
            const Index clone = source != nullptr ? map.cloneOf(*source) : kNoIndex;
            if (clone != kNoIndex) clones.push_back(listedAs(each, to.at(clone).handle));
        }
        if (clones.empty()) continue;
        ObjectBody* const there = listingIn(to, *listing, from.decode(entry.key));
        if (there == nullptr || there->type() != listing->type()) continue;
        std::vector<ListedObject> all = listedObjects(*there);
        all.insert(all.end(), clones.begin(), clones.end());
        there->setTags(listingOf(*there, all));
    }
}

void bringClasses(const Store& from, Store& to, Index firstNew) {
    const Classes known = classesOf(from);
    if (known.empty()) return;
    const Classes there = classesOf(to);
    std::unordered_set<std::string_view> added;
    std::string records;
    std::string_view former;
    for (Index index = firstNew; index <= to.count(); ++index) {
        const std::string_view type = to.at(index).type();
        if (type == std::exchange(former, type)) continue;  // many of a type stand together
        const auto record = known.find(type);
        if (record == known.end() || there.count(type) != 0 || !added.insert(type).second) continue;
        records += classIn(to.version(), record->second);
    }
    if (records.empty()) return;
    auto& sections = to.sections();
    auto section = std::find_if(sections.begin(), sections.end(), isClasses);
    if (section == sections.end()) {
        section = std::find_if(sections.begin(), sections.end(), [](const Section& each) {
            return each.kind != SectionKind::Header && each.kind != SectionKind::Raw;
        });
        section = sections.insert(section, {"CLASSES", SectionKind::Raw, {}});
    }
    section->text += records;
}

}  // namespace host
