// Groups as text: reading, numbers, searches.
#include "host/tags/tags.h"

#include <gtest/gtest.h>

#include <cmath>

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

TEST(Tags, SearchesLeaveApplicationBracketsOut) {
    std::string text;
    addTag(text, 0, "LINE");
    addTag(text, 102, "{MINE");
    addHandleTag(text, 330, 0xA);
    addTag(text, 102, "}");
    addHandleTag(text, 330, 0xB);
    addTag(text, 100, "AcDbLine");
    addHandleTag(text, 330, 0xC);
    EXPECT_EQ(findTag(text, 330)->value, "B");
    EXPECT_EQ(findTag(text, 330, 1)->value, "C");
    EXPECT_FALSE(findTag(text, 330, 2));
    EXPECT_EQ(*subclassPart(text, "AcDbLine"), "100\nAcDbLine\n330\nC\n");
    replaceValue(text, *findTag(text, 330), "LONGER");
    EXPECT_EQ(findTag(text, 330)->value, "LONGER");
    EXPECT_EQ(findTag(text, 330, 1)->value, "C");
}

TEST(Tags, ReadingStopsAtTheEndOfCutText) {
    Tag tag;
    for (const char* text : {"  0", "  0\n", "  0\nLI", "\n", "x"}) {
        TagReader reader(text);
        ASSERT_TRUE(reader.next(tag)) << text;
        EXPECT_FALSE(reader.next(tag)) << text;
    }
}

}  // namespace
}  // namespace host
