// Result buffers: lists from arguments, their ownership, and calls that are made to fail.
#include <functional>

#include "database/drawing_fixture.h"
#include "host/objects/result_list.h"

namespace tests {
namespace {

using ResultBuffers = DrawingTest;
using EntityCalls = DrawingTest;

TEST_F(ResultBuffers, ListTakesCopiesByTypeCode) {
    std::wstring text = L"INSERT";
    const ads_point point = {1.0, 2.0, 3.0};
    const ads_name name = {77, 0};
    resbuf* const list = acutBuildList(RTDXF0, text.c_str(), 10, point, 40, 2.5, 70, -1, 90, 100000,
                                       330, name, -4, L"<OR", RTLB, RTNIL, RTNONE);
    text[0] = L'?';
    std::string types;
    const std::vector<const ads_u_val*> values = valuesOf(list, types);
    ASSERT_EQ(types, "0 10 40 70 90 330 -4 5016 5019 ");
    EXPECT_STREQ(values[0]->rstring, L"INSERT");
    EXPECT_EQ(values[1]->rpoint[2], 3.0);
    EXPECT_EQ(values[2]->rreal, 2.5);
    EXPECT_EQ(values[3]->rint, -1);
    EXPECT_EQ(values[4]->rlong, 100000);
    EXPECT_EQ(values[5]->rlname[0], 77);
    EXPECT_EQ(host::heldCount(host::Held::ResultBuffer), 9);
    EXPECT_EQ(acutRelRb(list), RTNORM);
}

TEST_F(ResultBuffers, NoListFromNothingOrWrongArguments) {
    EXPECT_EQ(acutBuildList(RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(0, L"INSERT", 0), nullptr);  // group code 0 has to be RTDXF0
    EXPECT_EQ(acutBuildList(1, L"a", 85, 1, 0), nullptr);
    EXPECT_EQ(acutBuildList(1, static_cast<const ACHAR*>(nullptr), 0), nullptr);
    EXPECT_EQ(acutRelRb(nullptr), RTNORM);
}

TEST_F(ResultBuffers, AreReleasedOnceAndByTheirOwner) {
    host::ResultList builder;
    builder.addText(RTSTR, L"argument");
    resbuf* list = builder.release();
    host::markHostOwned(list);
    EXPECT_EQ(host::heldCount(host::Held::ResultBuffer), 0);
    EXPECT_EQ(acutRelRb(list), RTNORM);
    EXPECT_STREQ(list->resval.rstring, L"argument") << "what the host owns is left alone";
    host::freeList(list);

    const host::HeldCounts before = host::heldNow();
    list = acutBuildList(RTSTR, L"a", 40, 1.0, 0);
    host::checkNothingLeaked(before, "TEST");
    EXPECT_TRUE(holds(takeFaults().at(0), "result buffer list starting with type 5005"));
    acutRelRb(list);
    EXPECT_EQ(acutRelRb(list), RTERROR);
    resbuf foreign{};
    EXPECT_EQ(acutRelRb(&foreign), RTERROR);
    EXPECT_EQ(takeFaults().size(), 2u);
}

TEST_F(EntityCalls, EachFailsWithoutEffectWhenItIsMadeTo) {
    auto& insert = add("0 INSERT|100 AcDbEntity|8 0|100 AcDbBlockReference|2 B");
    add("0 LINE|100 AcDbEntity|8 0");
    Opened<AcDbBlockReference> open(idOf(insert), AcDb::kForWrite);
    ads_name name = {Adesk::IntPtr(idOf(insert).asWord()), 0};
    AcDbAttribute attribute;
    AcDbAttributeDefinition definition;
    AcDbObjectId id = idOf(insert);
    AcDbEntity* entity = nullptr;
    AcDbSequenceEnd* end = nullptr;
    AcDbObjectIdArray ids;
    ids.append(id);
    AcDbIdMapping map;
    const std::function<bool()> calls[] = {
        [&] { return acdbEntNext(name, name) == RTNORM; },
        [&] { return acdbEntLast(name) == RTNORM; },
        [&] { return acdbEntGet(name) != nullptr; },
        [&] { return acutBuildList(1, L"a", 0) != nullptr; },
        [&] { return open->setLayer(L"0") == Acad::eOk; },
        [&] { return open->setPosition(AcGePoint3d(9, 9, 9)) == Acad::eOk; },
        [&] { return open->appendAttribute(&attribute) == Acad::eOk; },
        [&] { return open->openSequenceEnd(end, AcDb::kForRead) == Acad::eOk; },
        [&] { return attribute.setTag(L"T") == Acad::eOk; },
        [&] { return definition.setInvisible(true) == Acad::eOk; },
        [&] { return acdbOpenAcDbEntity(entity, id, AcDb::kForRead) == Acad::eOk; },
        [&] { return database.deepCloneObjects(ids, id, map) == Acad::eOk; }};
    const std::uint64_t revision = store.revision;
    for (const auto& call : calls) {
        host::setFaultPlan({1, false, ""});
        EXPECT_FALSE(call()) << "call " << &call - calls;
        EXPECT_EQ(host::faultsInjected(), 1) << "call " << &call - calls;
    }
    host::setFaultPlan({});
    EXPECT_EQ(store.revision, revision);
    EXPECT_EQ(attribute.tagConst(), std::wstring());
}

}  // namespace
}  // namespace tests
