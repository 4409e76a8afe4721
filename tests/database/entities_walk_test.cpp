// Block references with attributes, the walk through drawing order and definition data.
#include "database/drawing_fixture.h"

namespace tests {
namespace {

using host::ObjectBody;

const std::string kLongLine =
    "0 LINE|100 AcDbEntity|8 0|100 AcDbLine|10 1|20 2|30 3|11 4|21 5|31 6";
const std::string kInsert = "0 INSERT|100 AcDbEntity|8 0|100 AcDbBlockReference|2 B|10 0|20 0|30 0";

/// Appends a new attribute and closes it; gives its id.
AcDbObjectId addAttribute(AcDbBlockReference& reference, const ACHAR* tag) {
    AcDbObjectId id;
    auto* attribute = new AcDbAttribute;
    attribute->setTag(tag);
    EXPECT_EQ(reference.appendAttribute(id, attribute), Acad::eOk);
    attribute->close();
    return id;
}

using EntityWalk = DrawingTest;
using BlockReference = DrawingTest;
using EntityData = DrawingTest;

TEST_F(EntityWalk, StaysInItsBlockAndAnswersErrorsWithoutTouchingTheResult) {
    ObjectBody& point = add("0 POINT|100 AcDbEntity|8 0", paper());
    add("0 ARC|100 AcDbEntity|8 0", paper());
    ads_name name = {42, 0};
    EXPECT_EQ(acdbEntNext(nullptr, name), RTERROR);
    EXPECT_EQ(acdbEntLast(name), RTERROR);
    add(kLongLine);
    EXPECT_EQ(walk(idOf(point)), "ARC");
    const ads_name bad = {42, 7};
    ads_name table = {Adesk::IntPtr(idOf(model()).asWord()), 0};
    EXPECT_EQ(acdbEntNext(bad, name), RTERROR);
    EXPECT_EQ(acdbEntNext(table, name), RTERROR);
    EXPECT_EQ(name[0], 42);
}

TEST_F(BlockReference, FirstAttributeBringsTheSequenceEnd) {
    ObjectBody& insert = add(kInsert, paper());
    replaceText(insert, "8 0", "67 1|8 WALLS");
    Opened<AcDbBlockReference> reference(idOf(insert), AcDb::kForWrite);
    AcDbSequenceEnd* end = nullptr;
    EXPECT_EQ(reference->openSequenceEnd(end, AcDb::kForRead), Acad::eNullObjectId);
    const AcDbObjectId first = addAttribute(*reference, L"A");
    addAttribute(*reference, L"B");
    EXPECT_EQ(host::getField(insert, host::field::attributesFollow), 1);
    ASSERT_EQ(reference->openSequenceEnd(end, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(render(end->body().tags()), "0 SEQEND|5 " + handle(end->body()) + "|330 " +
                                              handle(insert) + "|100 AcDbEntity|8 WALLS|67 1");
    end->close();
    EXPECT_EQ(walk(idOf(insert)), "ATTRIB ATTRIB SEQEND");
    Opened<AcDbAttribute> again(first, AcDb::kForRead);
    EXPECT_EQ(reference->appendAttribute(&*again), Acad::eAlreadyInDb);
    EXPECT_EQ(reference->appendAttribute(nullptr), Acad::eNullObjectPointer);
}

TEST_F(BlockReference, IteratesOverItsAttributes) {
    ObjectBody& insert = add(kInsert);
    ObjectBody& other = add(kInsert);
    Opened<AcDbBlockReference> reference(idOf(insert), AcDb::kForWrite);
    const AcDbObjectId a = addAttribute(*reference, L"A");
    const AcDbObjectId b = addAttribute(*reference, L"B");
    Opened<AcDbAttribute>(a, AcDb::kForWrite)->erase();
    std::unique_ptr<AcDbObjectIterator> walk(reference->attributeIterator());
    EXPECT_EQ(host::heldCount(host::Held::Iterator), 1);
    walk->step();
    walk->step();
    EXPECT_TRUE(walk->done() && walk->objectId().isNull());
    walk->start();
    EXPECT_EQ(walk->objectId(), b);
    AcDbAttribute* attribute = nullptr;
    EXPECT_EQ(reference->openAttribute(attribute, a, AcDb::kForRead), Acad::eWasErased);
    Opened<AcDbBlockReference> stranger(idOf(other), AcDb::kForRead);
    EXPECT_EQ(stranger->openAttribute(attribute, b, AcDb::kForRead), Acad::eInvalidInput);
    EXPECT_EQ(attribute, nullptr);
}

TEST_F(BlockReference, NamesItsBlockById) {
    AcDbBlockReference reference({1, 2, 3}, idOf(paper()));
    EXPECT_EQ(reference.blockTableRecord(), idOf(paper()));
    EXPECT_TRUE(reference.position() == AcGePoint3d(1, 2, 3));
    reference.setScaleFactors(AcGeScale3d(2.0, 1.0, 3.0));
    EXPECT_EQ(render(reference.body().tags()),
              "0 INSERT|100 AcDbEntity|8 0|100 AcDbBlockReference|2 *Paper_Space|"
              "10 1.0|20 2.0|30 3.0|41 2.0|43 3.0");
}

TEST_F(EntityData, ListsNameTypeOwnerHandleThenTheGroups) {
    ObjectBody& line = add(kLongLine + "|62 -3|390 0|1 Ω|1001 APP|1070 5");
    ads_name name;
    acdbGetAdsName(name, idOf(line));
    resbuf* const list = acdbEntGet(name);
    std::string codes;
    const std::vector<const ads_u_val*> values = valuesOf(list, codes);
    ASSERT_EQ(codes, "-1 0 330 5 100 8 100 10 11 62 390 1 ");
    EXPECT_EQ(values[2]->rlname[0], Adesk::IntPtr(idOf(model()).asWord()));
    EXPECT_EQ(values[3]->rstring, host::fromUtf8(handle(line)));
    EXPECT_EQ(asPnt3d(values[8]->rpoint).distanceTo({4, 5, 6}), 0.0);
    EXPECT_EQ(values[9]->rint, -3);
    EXPECT_STREQ(values[11]->rstring, L"\x3A9");
    acutRelRb(list);
    store.setErased(line, true);
    EXPECT_EQ(acdbEntGet(name), nullptr);
}

}  // namespace
}  // namespace tests
