// Groups as text: reading, numbers, searches.
#include "host/tags/tag_walk.h"

#include <gtest/gtest.h>

#include <cmath>

#include "common/tag_literals.h"
#include "host/tags/tag_values.h"

namespace host {
namespace {

TEST(Tags, RealsReadBackAsTheSameDouble) {
    for (const double value : {0.0, -0.0, 0.1, 1.0 / 3, 100000.0, 1e15, 1e16, 1e-5, 1e-300, 1.7e308,
                               5e-324, -123456789.123456789}) {
        const std::string text = formatReal(value);
        EXPECT_EQ(*parseReal(text), value) << text;
        EXPECT_EQ(std::signbit(*parseReal(text)), std::signbit(value)) << text;
        EXPECT_NE(text.find_first_of(".e"), std::string::npos) << text;
    }
    EXPECT_EQ(formatReal(100000.0), "100000.0");
    EXPECT_EQ(*parseReal("1e-999"), 0.0);
}

TEST(Tags, WhatIsNoNumberIsRefused) {
    for (const char* text : {"", " ", "-", "nan", "inf", "-inf", "1,5", "0x10", "1 2", "1e999"}) {
        EXPECT_FALSE(parseReal(text)) << text;
        EXPECT_FALSE(parseInteger(text)) << text;
    }
    EXPECT_EQ(parseReal("  +1.5e3 "), 1500.0);
    EXPECT_EQ(parseInteger("    -7"), -7);
    EXPECT_EQ(parseHandle(" fedcba9876543210 "), 0xFEDCBA9876543210u);
    for (const char* text : {"", "0x1", "-1", "G", "10000000000000000"}) {
        EXPECT_FALSE(parseHandle(text)) << text;
    }
}

TEST(Tags, ValuesAreTheObjectsOwn) {
    std::string text = tests::tagsOf(
        "0 MTEXT|102 {MINE|330 A|62 1|102 }|330 B|100 AcDbText|62 2|10  1.5 |100 AcDbText|62 3|"
        "70 2147483647|71 -2147483648|72 1e5|40 1e999|101 Embedded|63 5|330 C|1001 MINE");
    const FieldPlace second{"AcDbText", 62, 1}, third{"AcDbText", 62, 2}, elsewhere{"AcDbLine", 62};
    EXPECT_EQ(handleTag(text, 330), 0xBu);
    EXPECT_EQ(integerTag(text, 62), 2);
    EXPECT_EQ(integerTag(text, second), 3);
    EXPECT_EQ(integerTag(text, third, 7), 2) << "without the part the whole object counts";
    EXPECT_EQ(integerTag(text, 70), 2147483647);
    for (const int code : {71, 72, 63, 99})
        EXPECT_EQ(integerTag(text, code, -7), -7) << code;
    EXPECT_EQ(realTag(text, 10), 1.5);
    EXPECT_EQ(realTag(text, 40, 8), 8);
    EXPECT_EQ(rawTag(text, 10), " 1.5 ");
    EXPECT_EQ(textTag(text, 10), "1.5");
    EXPECT_EQ(OwnTags(text).integer(62, 0), 2);
    setTag(text, second, "LONGER");
    setTag(text, {"AcDbText", 63}, 4);
    setTag(text, 64, 5);
    removeTag(text, elsewhere);
    setPointTag(text, {"AcDbText", 10}, 1, 2, 3);
    EXPECT_EQ(tests::render(text),
              "0 MTEXT|102 {MINE|330 A|62 1|102 }|330 B|100 AcDbText|10 1.0|20 2.0|30 3.0|63 4|"
              "100 AcDbText|62 LONGER|70 2147483647|71 -2147483648|72 1e5|40 1e999|64 5|"
              "101 Embedded|63 5|330 C|1001 MINE");
}

/// Each tag as its code, its zone (Head, Common, Part, Data, Embedded, X) and its role.
std::string walked(const std::string& literal) {
    const std::string text = tests::tagsOf(literal);
    std::string line;
    for (TagWalk tag(text); tag.next();) {
        line += (line.empty() ? "" : " ") + std::to_string(tag.code()) + "HCPDEX"[int(tag.zone())];
        if (tag.role() != TagRole::Plain) line += "-tho|()!"[int(tag.role())];
        if (tag.depth() > 0) line += std::to_string(tag.depth());
    }
    return line;
}

TEST(Tags, TheWalkTellsHeadPartsBracketsEmbeddedAndExtendedData) {
    EXPECT_EQ(walked("0 LINE|5 A|102 {ACAD_REACTORS|330 B|102  {X|102 }|102 }|102 }|102 text|"
                     "100 AcDbEntity|330 C|8 0|100 AcDbLine|330 D|100 AcDbEntity|101 E|100 F|330 F|"
                     "1001 G|330 H"),
              "0Ht 5Hh 102H(1 330H1 102H(2 102H)2 102H)1 102H! 102H 100C| 330Co 8C 100P| 330P "
              "100P| 101E 100E 330E 1001X 330X");
    EXPECT_EQ(walked("0 DIMSTYLE|5 A|105 B|105 C"), "0Ht 5H 105Hh 105H");
    // Data of an XRECORD have no brackets and no markers.
    EXPECT_EQ(walked("0 XRECORD|102 {X|102 }|330 A|100 AcDbXrecord|280 1|102 ATTRRECORD}|102 {Y|"
                     "100 Z|101 Z|5 B|1001 C"),
              "0Ht 102H(1 102H)1 330Ho 100D| 280D 102D 102D 100D 101D 5D 1001X");
}

}  // namespace
}  // namespace host
