// Rules of selection sets: members, order, names, limits.
#include <array>

#include "editor/editor_fixture.h"
#include "host/control/accounting.h"

namespace tests {
namespace {

class SelectionSets : public EditorTest {
  protected:
    SelectionSets() {
        for (int i = 0; i < 4; ++i) {
            const std::string x = std::to_string(i);
            add("0 LINE|10 " + x + "|20 0|11 " + x + "|21 1");
            acdbGetAdsName(names[i], entities[static_cast<std::size_t>(i)]);
        }
        acedSSAdd(names[0], nullptr, set);
    }
    ~SelectionSets() override { acedSSFree(set); }

    ads_name names[4];
    ads_name set = {0, 0};
};

TEST_F(SelectionSets, KeepOrderWithoutDuplicates) {
    EXPECT_EQ(acedSSAdd(names[2], set, set), RTNORM);
    EXPECT_EQ(acedSSAdd(names[0], set, set), RTNORM);
    EXPECT_EQ(acedSSAdd(names[1], set, set), RTNORM);
    EXPECT_EQ(members(set), "acb");
    EXPECT_EQ(acedSSDel(names[2], set), RTNORM);
    EXPECT_EQ(acedSSDel(names[2], set), RTERROR);
    EXPECT_EQ(members(set), "ab");
}

TEST_F(SelectionSets, RefuseBadIndexesAndErasedEntities) {
    ads_name entity = {7, 7};
    EXPECT_EQ(acedSSName(set, -1, entity), RTERROR);
    EXPECT_EQ(acedSSName(set, 1, entity), RTERROR);
    EXPECT_EQ(entity[0], 7);
    erase(entities[3]);
    EXPECT_EQ(acedSSAdd(names[3], set, set), RTERROR);
    erase(entities[0]);
    EXPECT_EQ(members(set), "a") << "an erased member is still given";
}

TEST_F(SelectionSets, RecogniseFreedForeignAndEmptyNames) {
    ads_name freed;
    ads_name_set(set, freed);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(freed), RTERROR);
    acedSSAdd(names[1], nullptr, set);  // takes the same place
    const ads_name empty = {0, 0}, wild = {128, 1}, wilder = {-1, 99};
    const Adesk::IntPtr* const bad[] = {freed, empty, names[0], wild, wilder};
    for (const Adesk::IntPtr* name : bad) {
        Adesk::Int32 length = 42;
        EXPECT_EQ(acedSSLength(name, &length), RTERROR);
        EXPECT_EQ(length, 42);
        EXPECT_EQ(acedSSFree(name), RTERROR);
        ads_name result = {7, 7};
        EXPECT_EQ(acedSSAdd(names[0], name, result), RTERROR);
        EXPECT_EQ(result[0], 7);
    }
    EXPECT_EQ(members(set), "b");
}

TEST_F(SelectionSets, AtMost128AreOpen) {
    std::vector<std::array<Adesk::IntPtr, 2>> open(127);
    for (auto& name : open)
        ASSERT_EQ(acedSSAdd(nullptr, nullptr, name.data()), RTNORM);
    ads_name more = {7, 7};
    EXPECT_EQ(acedSSAdd(nullptr, nullptr, more), RTERROR);
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, more), RTERROR);
    EXPECT_EQ(more[0], 7);
    EXPECT_EQ(host::heldCount(host::Held::SelectionSet), 128);
    for (auto& name : open)
        acedSSFree(name.data());
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, more), RTNORM);
    acedSSFree(more);
}

TEST_F(SelectionSets, BelongToTheirDrawing) {
    AcDbDatabase other(host::newDrawing());
    host::DocumentState otherState;
    otherState.database = &other;
    host::setCurrentDocumentState(&otherState);
    Adesk::Int32 length = 42;
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
    EXPECT_EQ(takeFaults().size(), 1u);
    host::setCurrentDocumentState(nullptr);
    ads_name none;
    EXPECT_EQ(acedSSAdd(nullptr, nullptr, none), RTERROR) << "no drawing is open";
    EXPECT_EQ(acedSSFree(set), RTNORM) << "freeing works from anywhere";
}

}  // namespace
}  // namespace tests
