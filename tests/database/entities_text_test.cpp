// Fields of texts and attributes: where they stand in the tags, and what edits leave alone.
#include <cmath>

#include "database/drawing_fixture.h"

namespace tests {
namespace {

using host::ObjectBody;

const std::string kHead = "100 AcDbEntity|8 0|";

/// Groups behind the identity: from the first subclass marker on.
std::string content(const ObjectBody& body) {
    const std::string all = render(body.tags());
    return all.substr(all.find("100 AcDbEntity"));
}

using EntityText = DrawingTest;
using EntityProperties = DrawingTest;

TEST_F(EntityText, EditsGroupsInPlaceAndKeepsTheRest) {
    ObjectBody& body =
        add("0 TEXT|" + kHead +
            "100 AcDbText|102 {A|40 9|102 }|10 1|20 2|30 3|40 2.5|999 note|1 old|39 7|"
            "100 AcDbText|1001 APP|1040 40.0");
    Opened<AcDbText> text(idOf(body), AcDb::kForWrite);
    EXPECT_EQ(text->height(), 2.5);
    text->setHeight(4.0);
    text->setTextString(L"new \x3A9");
    text->setRotation(std::acos(0.0));
    text->setVerticalMode(AcDb::kTextTop);
    text->setPosition({5.0, 6.0, 7.5});
    EXPECT_EQ(
        content(body),
        kHead +
            "100 AcDbText|102 {A|40 9|102 }|10 5.0|20 6.0|30 7.5|40 4.0|999 note|1 new Ω|39 7|"
            "50 90.0|100 AcDbText|73 3|1001 APP|1040 40.0");
    EXPECT_NEAR(text->rotation(), std::acos(0.0), 1e-12);
    text->setRotation(0.0);
    text->setVerticalMode(AcDb::kTextBase);
    EXPECT_EQ(
        content(body),
        kHead +
            "100 AcDbText|102 {A|40 9|102 }|10 5.0|20 6.0|30 7.5|40 4.0|999 note|1 new Ω|39 7|"
            "100 AcDbText|1001 APP|1040 40.0");
}

TEST_F(EntityText, ReadsDrawingsWithoutSubclassMarkers) {
    ObjectBody& body = add("0 ATTRIB|8 0|10 1|20 2|40 2.5|1 value|2 TAG|70 1|74 2");
    Opened<AcDbAttribute> attribute(idOf(body), AcDb::kForWrite);
    EXPECT_STREQ(attribute->tagConst(), L"TAG");
    EXPECT_TRUE(attribute->position() == AcGePoint3d(1, 2, 0));
    attribute->setFieldLength(25);
    attribute->setVerticalMode(AcDb::kTextTop);
    const std::string tags = render(body.tags());
    EXPECT_TRUE(holds(tags, "|70 1|74 3|73 25"));
}

TEST_F(EntityText, RefusesWhatNoDrawingCanHold) {
    AcDbAttributeDefinition text;
    const std::string before(text.body().tags());
    EXPECT_EQ(text.setHeight(std::nan("")), Acad::eInvalidInput);
    EXPECT_EQ(text.setPosition({0, INFINITY, 0}), Acad::eInvalidInput);
    EXPECT_EQ(text.setTextString(nullptr), Acad::eInvalidInput);
    EXPECT_EQ(text.setHorizontalMode(static_cast<AcDb::TextHorzMode>(9)), Acad::eInvalidInput);
    EXPECT_EQ(text.body().tags(), before);
    text.setTextString(L"two\nlines\r");
    EXPECT_EQ(std::wstring(text.textStringConst()).find_first_of(L"\r\n"), std::wstring::npos);
    ObjectBody& stored = add("0 TEXT|" + kHead + "100 AcDbText|40 1.0");
    Opened<AcDbText> reader(idOf(stored), AcDb::kForRead);
    EXPECT_EQ(reader->setHeight(2.0), Acad::eNotOpenForWrite);
    EXPECT_EQ(reader->height(), 1.0);
}

TEST_F(EntityProperties, NamesAreLookedUpAndSubEntitiesFollow) {
    ObjectBody& line = addPolyline();
    ObjectBody& vertex = store.at(line.firstChild);
    Opened<AcDbEntity> entity(idOf(line), AcDb::kForWrite);
    EXPECT_EQ(entity->setLayer(L"nowhere"), Acad::eKeyNotFound);
    EXPECT_EQ(entity->setLinetype(L"nowhere"), Acad::eKeyNotFound);
    EXPECT_EQ(entity->setColorIndex(257), Acad::eInvalidInput);
    EXPECT_EQ(entity->setLinetype(L"CONTINUOUS"), Acad::eOk);
    EXPECT_EQ(host::getField(line, host::field::linetype), L"Continuous");
    EXPECT_EQ(entity->setColorIndex(3), Acad::eOk);
    EXPECT_EQ(host::getField(vertex, host::field::color), 3);
    entity->setColorIndex(1, false);
    EXPECT_EQ(host::getField(vertex, host::field::color), 3);
    AcDbAttribute copy;
    copy.setHeight(2.0);
    copy.setPropertiesFrom(&*entity);
    EXPECT_EQ(host::getField(copy.body(), host::field::color), 1);
    EXPECT_EQ(copy.height(), 2.0);
    entity->setLinetype(L"BYLAYER");
    entity->setColorIndex(256);
    EXPECT_EQ(content(line), kHead + "100 AcDb2dPolyline|66 1");
}

}  // namespace
}  // namespace tests
