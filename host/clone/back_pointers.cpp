// Following the pointers and names of sources to definitions, and back.
#include "host/clone/back_pointers.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "host/content/references.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

constexpr std::string_view kUsers[] = {"INSERT",      "LEADER",      "TOLERANCE",
                                       "MULTILEADER", "IMAGE",       "WIPEOUT",
                                       "PDFUNDERLAY", "DWFUNDERLAY", "DGNUNDERLAY"};

bool usesDefinitions(const ObjectBody& source) {
    if (!isEntityKind(source.kind)) return false;
    return blockPictureOf(source.type()) != BlockPicture::None ||
           std::find(std::begin(kUsers), std::end(kUsers), source.type()) != std::end(kUsers);
}

bool namesUser(const ObjectBody& definition, const TagWalk& tag) {
    const bool isBlock = definition.kind == Kind::BlockRecord;
    return tag.role() == TagRole::Plain &&
           tag.bracket() == (isBlock ? Bracket::BlockReferences : Bracket::Reactors);
}

class UserLists {
  public:
    UserLists(const Store& from, Store& to, const CloneMap& map, Index firstNew)
        : m_from(from), m_to(to), m_map(map), m_firstNew(firstNew) {}

    void run() {
        for (const CloneMap::Pair& pair : m_map.pairs())
            if (usesDefinitions(*pair.source)) follow(*pair.source, pair.clone);
        for (const auto& [definition, users] : m_new)
            add(m_to.at(definition), users);
    }

  private:
    /// The user is an entity, or the reactor that it owns.
    void follow(const ObjectBody& source, Index clone) {
        std::vector<std::pair<const ObjectBody*, Index>> users{{&source, clone}};
        std::vector<const ObjectBody*> definitions;
        TagWalk tag(source.tags());
        while (tag.nextOwn()) {
            if (const char* table = tableNamedBy(source, tag)) {
                if (tag.code() != 6 && tag.code() != 8)
                    definitions.push_back(m_from.symbol(table, m_from.decode(tag.value())));
                continue;
            }
            const TagType type = tagTypeOf(tag.code());
            if (type != TagType::HardPointer && type != TagType::HardOwner) continue;
            const ObjectBody* const named = m_from.byHandle(tag.value());
            if (type == TagType::HardPointer)
                definitions.push_back(named);
            else if (named != nullptr)
                users.push_back({named, m_map.cloneOf(*named)});
        }
        for (const ObjectBody* definition : definitions)
            for (const auto& [user, made] : users)
                if (definition != nullptr && made != kNoIndex) note(*definition, *user, made);
    }

    void note(const ObjectBody& definition, const ObjectBody& user, Index clone) {
        if (isEntityKind(definition.kind)) return;
        const Index cloned = m_map.cloneOf(definition);
        const Index there = &m_from == &m_to && cloned == kNoIndex ? definition.self : cloned;
        const bool translated = there == kNoIndex || there >= m_firstNew;
        if (!translated && usersOf(definition).count(user.handle) != 0)
            m_new[there].push_back(m_to.at(clone).handle);
    }

    const std::unordered_set<std::uint64_t>& usersOf(const ObjectBody& definition) {
        const auto [place, isNew] = m_users.try_emplace(&definition);
        if (!isNew) return place->second;
        TagWalk tag(definition.tags());
        while (tag.next())
            if (namesUser(definition, tag))
                place->second.insert(parseHandle(tag.value()).value_or(0));
        return place->second;
    }

    /// Behind the users that are listed; else in a bracket of their own behind the handle.
    static void add(ObjectBody& definition, const std::vector<std::uint64_t>& users) {
        const bool isBlock = definition.kind == Kind::BlockRecord;
        std::string text(definition.tags()), tags;
        for (const std::uint64_t user : users)
            addHandleTag(tags, isBlock ? 331 : 330, user);
        std::size_t place = 0, handleEnd = 0;
        TagWalk tag(text);
        while (tag.next()) {
            if (namesUser(definition, tag)) place = tag.end();
            if (tag.role() == TagRole::Handle) handleEnd = tag.end();
        }
        if (place == 0 && isBlock) return;
        if (place == 0) {
            std::string bracket;
            addTag(bracket, 102, "{ACAD_REACTORS");
            tags = bracket + tags;
            addTag(tags, 102, "}");
            place = handleEnd;
        }
        definition.setTags(text.insert(place, tags));
    }

    const Store& m_from;
    Store& m_to;
    const CloneMap& m_map;
    Index m_firstNew;
    std::unordered_map<const ObjectBody*, std::unordered_set<std::uint64_t>> m_users;
    std::unordered_map<Index, std::vector<std::uint64_t>> m_new;  ///< by definition
};

}  // namespace

void enterInDefinitions(const Store& from, Store& to, const CloneMap& map, Index firstNew) {
    UserLists(from, to, map, firstNew).run();
}

void leaveDefinition(ObjectBody& definition, std::uint64_t user) {
    std::string left;
    TagWalk tag(definition.tags());
    while (tag.next())
        if (!namesUser(definition, tag) || parseHandle(tag.value()) != user) left += tag.stored();
    if (left != definition.tags()) definition.setTags(left);
}

}  // namespace host
