// Drawing order under erasing and restoring, against a plain list.
#include <algorithm>
#include <random>

#include "common/seeds.h"
#include "database/drawing_fixture.h"
#include "host/objects/erasing.h"
#include "host/store/body_text.h"

namespace tests {
namespace {

using host::Index;
using host::kNoIndex;

/// Compares every walk with a plain list of all members in append order.
void expectSame(const host::Store& store, Index parent,
                const std::vector<host::ObjectBody*>& members) {
    Index before = kNoIndex, behind = kNoIndex;
    for (const host::ObjectBody* member : members) {
        ASSERT_EQ(store.previousLive(*member), before) << "before " << member->self;
        if (!member->erased) before = member->self;
    }
    EXPECT_EQ(store.lastLive(parent), before);
    for (auto at = members.rbegin(); at != members.rend(); ++at) {
        ASSERT_EQ(store.nextLive(**at), behind) << "behind " << (*at)->self;
        if (!(*at)->erased) behind = (*at)->self;
    }
    EXPECT_EQ(store.firstLive(parent), behind);
}

void compareWithAPlainList(unsigned seed) {
    AcDbDatabase database(host::newDrawing());
    host::Store& store = database.store();
    const Index parent = store.modelSpace();
    std::mt19937 random(seed);
    std::vector<host::ObjectBody*> members;
    for (int round = 0; round < 300; ++round) {
        // Every other member belongs to another block, so that indexes have gaps.
        if (random() % 4 == 0 || members.empty()) {
            append(store, "0 LINE|8 0", store.paperSpace());
            members.push_back(&append(store, "0 LINE|8 0", parent));
        } else {
            host::ObjectBody& member = *members[random() % members.size()];
            store.setErased(member, !member.erased);
        }
        if (round % 7 == 0) expectSame(store, parent, members);
        if (testing::Test::HasFatalFailure()) return;
    }
    expectSame(store, parent, members);
}

TEST(RandomOrder, EveryWalkAgreesWithAPlainList) { tryEachSeed(12, compareWithAPlainList); }

using EraseWithOwned = DrawingTest;

TEST_F(EraseWithOwned, EndsInADrawingWhoseDictionariesOwnEachOther) {
    host::ObjectBody& outer = addObject("0 DICTIONARY|100 AcDbDictionary", model());
    host::ObjectBody& inner = addObject("0 DICTIONARY|100 AcDbDictionary", outer);
    outer.owner = inner.self;
    for (host::ObjectBody* body : {&outer, &inner}) {
        std::string text(body->tags());
        host::addTag(text, 3, "other");
        host::addHandleTag(text, 350, store.at(body->owner).handle);
        body->setTags(text);
    }
    host::eraseWithOwned(outer);
    EXPECT_TRUE(outer.erased && inner.erased);
}

TEST(HandleIndex, FindsNeighboursAndTheHighestAndRefusesTakenOnes) {
    host::Store store;
    const std::uint64_t handles[] = {1, 2, 3, 0x1000001, ~std::uint64_t{0}};
    for (const std::uint64_t handle : handles)
        ASSERT_NE(store.create(host::Kind::Entity, "", handle), nullptr);
    for (const std::uint64_t handle : handles) {
        EXPECT_EQ(store.byHandle(handle)->handle, handle);
        EXPECT_EQ(store.create(host::Kind::Entity, "", handle), nullptr);
    }
    // The highest handle is taken: new ones are free ones below.
    host::ObjectBody& made = store.duplicate(host::ObjectBody(), kNoIndex);
    EXPECT_EQ(std::count(std::begin(handles), std::end(handles), made.handle), 0);
    EXPECT_EQ(store.byHandle(made.handle), &made);
}

TEST(MissingHandles, AreGivenInTheRightGroup) {
    host::Store store;
    const auto create = [&](const char* literal, std::uint64_t handle) -> host::ObjectBody& {
        const auto kept = store.keep(tagsOf(literal));
        return *store.create(host::Kind::Entity, kept, handle);
    };
    host::ObjectBody& line = create("0 LINE|8 0", 0);
    host::ObjectBody& style = create("0 DIMSTYLE|2 Standard|5 arrow", 0);
    create("0 POINT|5 20|8 0", 0x20);
    store.assignMissingHandles();
    EXPECT_EQ(render(line.tags()), "0 LINE|5 21|8 0");
    EXPECT_EQ(render(style.tags()), "0 DIMSTYLE|105 22|2 Standard|5 arrow");
    EXPECT_EQ(render(host::withIdentity(style.tags(), 0x23, 0x1)).substr(0, 17),
              "0 DIMSTYLE|105 23");
    EXPECT_EQ(store.byHandle(0x22), &style);
    EXPECT_EQ(store.handleSeed(), 0x23u);
}

}  // namespace
}  // namespace tests
