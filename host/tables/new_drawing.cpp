// The drawing that NEW gives: everything that a valid AC1027 drawing must hold, metric.
//
// The content itself is in new_drawing_groups.h.
#include "host/store/store.h"
#include "host/tables/new_drawing_groups.h"
#include "host/tags/tags.h"

namespace host {

namespace {

/// Stored form of tags that are written "code value".
std::string storedForm(std::string_view lines) {
    std::string text;
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        const std::string_view line = lines.substr(0, end);
        const std::size_t blank = line.find(' ');
        const std::string_view value =
            blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
        addTag(text, static_cast<int>(parseInteger(line.substr(0, blank)).value_or(0)), value);
        lines.remove_prefix(end + 1);
    }
    return text;
}

/// Handle and owner of an object: tags 5 (105) and 330 in front of the first marker.
struct Identity {
    std::uint64_t handle = 0;
    std::uint64_t owner = 0;
};

Identity identityOf(std::string_view text) {
    Identity identity;
    TagReader reader(text);
    Tag tag;
    bool inBracket = false;
    while (reader.next(tag) && tag.code != 100) {
        if (tag.code == 102) inBracket = tag.value.front() == '{';
        if (tag.code == 5 || tag.code == 105) identity.handle = parseHandle(tag.value).value_or(0);
        if (tag.code == 330 && !inBracket) identity.owner = parseHandle(tag.value).value_or(0);
    }
    return identity;
}

/// Puts an object into the structure that it belongs to.
void place(Store& store, ObjectBody& body) {
    switch (body.kind) {
        case Kind::BlockTable:
        case Kind::LayerTable:
        case Kind::LinetypeTable:
        case Kind::OtherTable:
            store.tables().push_back(body.self);
            return;
        case Kind::BlockRecord:
            store.blockOrder().push_back(body.self);
            break;
        case Kind::BlockBegin:
            store.blockParts(body.owner).begin = body.self;
            return;
        case Kind::BlockEnd:
            store.blockParts(body.owner).end = body.self;
            return;
        case Kind::LayerRecord:
        case Kind::LinetypeRecord:
        case Kind::OtherRecord:
            break;
        default:
            store.appendChild(store.objectsList(), body);
            return;
    }
    store.appendChild(body.owner, body);
    store.indexSymbol(body.owner, body, symbolName(body));
}

void addObjects(Store& store, std::string_view lines) {
    const std::string text = storedForm(lines);
    constexpr std::string_view kObjectBegin = "  0\n";
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t next = text.find("\n  0\n", begin + 1);
        const std::size_t end = next == std::string::npos ? text.size() : next + 1;
        const std::string_view kept = store.keep(std::string_view(text).substr(begin, end - begin));
        const std::string_view type = kept.substr(kObjectBegin.size());
        const Identity identity = identityOf(kept);
        ObjectBody* const body = store.create(kindOf(type.substr(0, type.find('\n')), kept, false),
                                              kept, identity.handle);
        const ObjectBody* const owner = store.byHandle(identity.owner);
        body->owner = owner != nullptr ? owner->self : kNoIndex;
        place(store, *body);
        begin = end;
    }
}

}  // namespace

void makeNewDrawing(Store& store) {
    using namespace new_drawing;
    store.sections() = {{"HEADER", SectionKind::Header, storedForm(kHeader)},
                        {"CLASSES", SectionKind::Raw, storedForm(kClasses)},
                        {"TABLES", SectionKind::Tables, {}},
                        {"BLOCKS", SectionKind::Blocks, {}},
                        {"ENTITIES", SectionKind::Entities, {}},
                        {"OBJECTS", SectionKind::Objects, {}}};
    addObjects(store, kTables);
    addObjects(store, kBlocks);
    addObjects(store, kObjects);
    store.setHeaderValue("$HANDSEED", 5, formatHandle(store.handleSeed()));
    store.revision = 0;
}

}  // namespace host
