// Path data and inks by themselves.
#include <gtest/gtest.h>

#include "picture/inks.h"
#include "picture/paths.h"

namespace tests {
namespace {

using host::Arc;
using host::Line;

/// In a view of 100 by 50 drawing units.
class Paths : public testing::Test {
  protected:
    const std::string& of(const Line& line) {
        data.clear();
        data.line(line);
        return data.data();
    }
    const std::string& of(const Arc& arc) {
        data.clear();
        data.arc(arc);
        return data.data();
    }
    picture::View view{{0, 0, 100, 50}, 1, 2};
    picture::PathData data{view};
};

TEST_F(Paths, EndlessLinesEndAtTheBorder) {
    const auto endless = [](host::Vec a, host::Vec b, bool both) { return Line{a, b, both, true}; };
    EXPECT_EQ(of(Line{{1, 2, 0}, {3, 4.12, 0}}), "M1 48l2-2.12");
    EXPECT_EQ(of(endless({10, 10, 0}, {11, 10, 0}, false)), "M10 40h90");
    EXPECT_EQ(of(endless({10, 10, 0}, {10, 11, 0}, true)), "M10 50v-50");
    EXPECT_EQ(of(endless({10, 60, 0}, {11, 60, 0}, true)), "") << "above all that is shown";
    EXPECT_EQ(of(endless({10, 10, 0}, {10, 10, 0}, true)), "") << "without direction";
}

TEST_F(Paths, ArcsKeepTheirSideAndTilt) {
    const double half = 3.141592653589793;
    EXPECT_EQ(of(Arc{{10, 10, 0}, {5, 0, 0}, {0, 5, 0}, 0, half}), "M15 40a5 5 0 0 0 -10 0");
    EXPECT_EQ(of(Arc{{10, 10, 0}, {5, 0, 0}, {0, -5, 0}, 0, half}), "M15 40a5 5 0 0 1 -10 0");
    EXPECT_EQ(of(Arc{{10, 10, 0}, {5, 0, 0}, {0, 5, 0}, 0, half * 1.5}), "M15 40a5 5 0 1 0 -5 5");
    EXPECT_EQ(of(Arc{{10, 10, 0}, {5, 0, 0}, {0, 5, 0}, 0, 2 * half}),
              "M15 40a5 5 0 0 0 -10 0a5 5 0 0 0 10 0");
    EXPECT_EQ(of(Arc{{10, 10, 0}, {0, 4, 0}, {-2, 0, 0}, 0, half}), "M10 36a4 2 -90 0 0 0 8");
    EXPECT_EQ(of(Arc{{10, 10, 0}, {5, 0, 0}, {5, 0, 0}, 0, 2 * half}), "M2.93 40h14.14")
        << "seen from the side";
}

TEST_F(Paths, NumbersHaveTheDecimalsOfTheView) {
    view = {{1e6, 0, 1e6 + 1, 1}, 1, 7};
    picture::PathData fine(view);
    fine.line({{1e6 + 0.1234567, 1, 0}, {1e6 + 0.5, 0.5, 0}});
    EXPECT_EQ(fine.data(), "M.1234567 0l.3765433 .5");
    view = {{0, 0, 1e12, 1e12}, 1, 0};
    picture::PathData coarse(view);
    coarse.line({{0.4, 1e12, 0}, {1e300, 1e12, 0}});
    EXPECT_EQ(coarse.data(), "M0 0h100000000000000000");
}

TEST_F(Paths, StrokesAreJoinedAndDotsLeftOut) {
    data.line({{0, 0, 0}, {1, 0, 0}});
    data.line({{1, 0, 0}, {1, 0.001, 0}});
    data.line({{1, 0, 0}, {1, 1, 0}});
    data.area({{5, 5, 0}, {6, 5, 0}, {6, 6, 0}});
    EXPECT_EQ(data.data(), "M0 50h1v-1M5 45h1v-1z");
    EXPECT_EQ(of(Line{{1, 1, 0}, {1, 1, 0}}), "M1 49h0") << "a dot alone stays";
}

TEST(InkColours, AreThoseOfTheIndexAndReadable) {
    EXPECT_EQ(picture::colourOfIndex(1), 0xff0000u);
    EXPECT_EQ(picture::colourOfIndex(7), picture::colourOfIndex(0));
    const std::pair<int, picture::Rgb> wheel[] = {
        {10, 0xff0000},  {30, 0xff8000},  {52, 0xa5a500},  {90, 0x00ff00},  {131, 0x80ffff},
        {170, 0x0000ff}, {210, 0xff00ff}, {249, 0x261318}, {250, 0x333333}, {255, 0xffffff}};
    for (const auto& [index, colour] : wheel)
        EXPECT_EQ(picture::colourOfIndex(index), colour) << index;
    EXPECT_NE(picture::readableOnLight(0xffff00), 0xffff00u) << "yellow on white";
    EXPECT_EQ(picture::readableOnDark(0x808080), 0x808080u);
    EXPECT_NE(picture::readableOnDark(0x000000), 0x000000u);
}

}  // namespace
}  // namespace tests
