// Rendering drawings as text for whole-state comparisons.
#include "commands/commands_fixture.h"

#include "common/tag_literals.h"
#include "host/commands/entity_maker.h"
#include "host/store/body_text.h"

namespace tests {

using namespace host;

std::string stateOf(const Store& store) {
    std::string text;
    for (const Section& section : store.sections())
        text += section.text;
    for (Index at = 1; at <= store.count(); ++at) {
        const ObjectBody& body = store.at(at);
        if (body.erased || body.size == 0) continue;
        text += std::to_string(at) + ":\n" + std::string(body.tags());
        std::string forward, backward;
        for (const ObjectBody& child : store.children(at))
            forward += " " + std::to_string(child.self);
        for (Index child = store.lastLive(at); child != kNoIndex;
             child = store.previousLive(store.at(child)))
            backward = " " + std::to_string(child) + backward;
        text += forward + "\n" + (forward == backward ? "" : "backward" + backward + "\n");
    }
    return text;
}

CommandsTest::~CommandsTest() {
    for (std::size_t i = 0; i < session->documents.count(); ++i)
        EXPECT_EQ(errorsIn(session->documents.at(i)->database()->store()), "");
}

std::string CommandsTest::values(const ObjectBody& body, std::initializer_list<int> codes) {
    std::string text;
    for (const int code : codes) {
        TagReader reader(body.tags());
        Tag tag;
        bool found = false;  // also in extended data
        while (!found && reader.next(tag))
            found = tag.code == code;
        text += (text.empty() ? "" : " ") + (found ? std::string(tag.value) : "-");
    }
    return text;
}

ObjectBody& CommandsTest::add(const std::string& type, const std::string& tags) {
    return *Store::resolve(addEntity(store(), type, tagsOf(tags)));
}

ObjectBody& CommandsTest::addDictionary(const ObjectBody& owner, bool hard) const {
    const std::string tags = "0 DICTIONARY|100 AcDbDictionary|280 ";
    return appendObject(store(), tags + (hard ? "1" : "0"), owner.self);
}

ObjectBody& CommandsTest::addExtensionDictionary(ObjectBody& entity, bool hard) const {
    ObjectBody& made = addDictionary(entity, hard);
    std::string tags(entity.tags());
    setExtensionDictionary(tags, made.handle);
    entity.setTags(tags);
    return made;
}

}  // namespace tests
