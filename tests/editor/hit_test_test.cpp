// What picks, windows and crossings reach, for each kind of entity.
#include "host/picking/hit_test.h"
#include "host/control/effects.h"
#include "host/editor/selection/selection_sources.h"
#include "host/picking/view.h"

#include "common/tag_literals.h"
#include "editor/editor_fixture.h"
#include "host/tags/tag_values.h"

namespace tests {
namespace {

struct Form {
    const char* tags;
    double x, y;                      ///< on the entity
    double missX, missY;              ///< near it, but not on it
    double left, bottom, right, top;  ///< holds all of it; empty for what no window holds
};

/// Of each kind and each way to say where it is.
const Form kForms[] = {
    {"0 LINE|10 0|20 0|11 10|21 10", 5, 5, 5, 6, 0, 0, 10, 10},
    {"0 POINT|10 3|20 4|30 9", 3, 4, 3, 5, 2.95, 3.95, 3.05, 4.05},
    {"0 CIRCLE|10 0|20 0|40 5", 3, 4, 0, 0, -5, -5, 5, 5},
    {"0 CIRCLE|10 10|20 0|40 5|210 0|220 0|230 -1", -15, 0, 10, 5, -15, -5, -5, 5},
    {"0 ARC|10 0|20 0|40 5|50 270|51 90", 5, 0, -5, 0, 0, -5, 5, 5},
    {"0 ARC|10 0|20 0|40 5|50 270|51 90|210 0|220 0|230 -1", -5, 0, 5, 0, -5, -5, 0, 5},
    {"0 ELLIPSE|10 0|20 0|11 0|21 4|40 0.5|41 0|42 6.283185307179586", 2, 0, 0, 0, -2, -4, 2, 4},
    {"0 ELLIPSE|10 0|20 0|11 4|21 0|40 0.5|41 0|42 3.141592653589793", 0, 2, 0, -2, -4, 0, 4, 2},
    {"0 LWPOLYLINE|90 3|70 1|10 0|20 0|10 4|20 0|10 4|20 4", 2, 2, 2, 1, 0, 0, 4, 4},
    {"0 LWPOLYLINE|90 2|70 0|10 0|20 0|42 -1|10 4|20 0", 2, 2, 2, -2, 0, 0, 4, 2},
    {"0 SPLINE|70 0|40 0|40 1|10 9|20 9|11 0|21 0|11 2|21 2", 1, 1, 9, 9, 0, 0, 2, 2},
    {"0 SPLINE|70 8|71 2|40 0|40 0|40 0|40 1|40 1|40 1|10 0|20 0|10 2|20 4|10 4|20 0", 2, 2, 2, 4,
     0, 0, 4, 2},
    {"0 TEXT|10 0|20 0|40 2|1 four|51 45|71 2", -7.5, 1.5, -0.5, 1.5, -8.4, 0, 0, 2},
    {"0 TEXT|10 0|20 0|40 2|1 four|50 90", -1, 3, 1, 3, -2, 0, 0, 6.4},
    {"0 TEXT|10 9|20 9|11 0|21 0|40 2|1 four|72 1|73 2", -3, 0.9, 9, 9, -3.2, -1, 3.2, 1},
    {"0 MTEXT|10 0|20 0|40 3|41 0|71 1|1 ab\\Pabcd", 9, -7, 9, 1, 0, -8, 9.6, 0},
    {"0 MTEXT|10 0|20 0|40 2|41 0|71 7|1 four|50 90", -1, 3, 1, 3, -2, 0, 0, 6.4},
    {"0 SOLID|10 0|20 0|11 4|21 0|12 0|22 4|13 4|23 4", 3, 2, 5, 2, 0, 0, 4, 4},
    {"0 3DFACE|10 0|20 0|11 4|21 0|12 4|22 4|13 0|23 4", 4, 2, 2, 2, 0, 0, 4, 4},
    {"0 HATCH|10 0|20 0|2 SOLID|91 1|92 2|72 0|73 1|93 3|10 0|20 0|10 4|20 0|10 4|20 4|97 0|75 "
     "0|98 "
     "1|10 9|20 9",
     2, 2, 9, 9, 0, 0, 4, 4},
    {"0 HATCH|10 0|20 0|91 1|92 1|93 2|72 2|10 0|20 0|40 2|50 0|51 180|73 0|72 1|10 2|20 0|11 "
     "-2|21 "
     "0|97 0|75 0",
     0, -2, 0, 2, -2, -2, 2, 0},
    {"0 LEADER|10 0|20 0|10 2|20 2|10 5|20 2", 4, 2, 2, 0, 0, 0, 5, 2},
    {"0 RAY|10 0|20 0|11 1|21 1", 1000, 1000, -1, -1, 0, 0, 0, 0},
    {"0 XLINE|10 0|20 0|11 1|21 1", -900, -900, 1, 0, 0, 0, 0, 0},
    {"0 LWPOLYLINE|70 0|43 2|10 0|20 0|10 9|20 0|10 9|20 9", 9.9, 0.5, 5, 1.1, 0, -1, 10, 9},
    {"0 LWPOLYLINE|70 0|10 0|20 0|40 4|41 0|10 8|20 0", 1, 1.7, 7, 0.5, 0, -2, 8, 2},
    {"0 LWPOLYLINE|70 0|43 2|10 5|20 0|42 1|10 -5|20 0", 0, 5.9, 0, 3.9, -6, 0, 6, 6},
    {"0 MLINE|70 1|71 1|72 2|73 2|11 0|21 0|12 1|22 0|13 0|23 1|74 2|41 -1|41 0|75 0|74 4|41 1|41 "
     "0|41 2|41 6|75 0|11 8|21 0|12 1|22 0|13 0|23 1|74 2|41 -1|41 0|75 0|74 2|41 1|41 0|75 0",
     1, 1, 4, 1, 0, -1, 8, 1},
    {"0 TOLERANCE|3 none|10 0|20 0|11 0|21 1|1 ab%%v%%vcd^Jefg", 0.54, 0.1, 0.1, 0.9, -0.18, 0,
     0.54, 0.936},
    {"0 MULTILEADER|300 CONTEXT_DATA{|40 1|10 90|20 90|41 1|140 3|304 ab|12 11|22 5|43 0|171 1|302 "
     "LEADER{|290 1|10 8|20 4|11 1|21 0|40 2|304 LEADER_LINE{|10 0|20 0|305 }|303 }|301 }|170 1",
     4, 2, 10.5, 4, 0, -0.1, 12.6, 5},
    {"0 ACAD_PROXY_ENTITY|10 1|20 1|10 2|20 3", 2, 3, 1, 2, 1, 1, 2, 3}};

class HitTest : public EditorTest {
  protected:
    std::string at(double x, double y) { return letters(host::entitiesAt(store, {x, y, 0}, 0.01)); }
    std::string in(double left, double bottom, double right, double top, bool crossing) {
        return letters(host::entitiesInWindow(store, {right, bottom, 0}, {left, top, 0}, crossing));
    }
};

TEST_F(HitTest, ReachesEachForm) {
    const auto crossed = [&](double x, double y) {
        return in(x - 0.02, y - 0.02, x + 0.02, y + 0.02, true);
    };
    for (const Form& form : kForms) {
        SCOPED_TRACE(form.tags);
        entities.clear();
        const AcDbObjectId id = add(form.tags);
        EXPECT_EQ(at(form.x, form.y), "a");
        EXPECT_EQ(at(form.missX, form.missY), "");
        EXPECT_EQ(crossed(form.x, form.y), "a");
        EXPECT_EQ(crossed(form.missX, form.missY), "");
        const bool bounded = form.right > form.left;
        const double left = form.left - 1e-6, bottom = form.bottom - 1e-6;
        const double right = form.right + 1e-6, top = form.top + 1e-6;
        EXPECT_EQ(in(left, bottom, right, top, false), bounded ? "a" : "");
        EXPECT_EQ(in(left + 0.1, bottom, right, top, false), "") << "left side cut";
        EXPECT_EQ(in(left, bottom, right, top - 0.1, false), "") << "top cut";
        erase(id);
    }
}

/// A block with a unit square (0,0)-(1,1) and base point (1,0), and what refers to it.
class BlockHits : public HitTest {
  protected:
    BlockHits() {
        square = addBlock("SQUARE", "10 1|20 0");
        add("0 LWPOLYLINE|70 1|10 0|20 0|10 1|20 0|10 1|20 1|10 0|20 1", square);
    }
    host::Index square;
};

TEST_F(BlockHits, ReferencesPlaceTheirBlock) {
    add("0 INSERT|2 square|10 10|20 0|41 2|42 4|50 90");  // b: (10,-2) to (6,0)
    EXPECT_EQ(at(6, -1), "b");
    EXPECT_EQ(at(10, -2), "b");
    EXPECT_EQ(at(11, 1), "");
    EXPECT_EQ(in(5.99, -2.01, 10.01, 0.01, false), "b");
    EXPECT_EQ(in(6.1, -2.01, 10.01, 0.01, false), "");
    add("0 INSERT|2 SQUARE|10 101|20 0|70 3|71 2|44 5|45 5");  // c: 3 by 2 squares from (100,0)
    EXPECT_EQ(in(99.99, -0.01, 111.01, 6.01, false), "c");
    EXPECT_EQ(at(110.5, 6), "c");
    add("0 ACAD_TABLE|2 square|10 10|20 20|11 0|21 1");  // d: (9,19) to (10,20)
    EXPECT_EQ(at(9.5, 19), "d");
}

TEST_F(BlockHits, NothingVisibleIsNoGraphics) {
    const host::Index marker = addBlock("MARKER");
    add("0 ATTDEF|10 0|20 0|40 1|1 x|2 TAG|70 1", marker);
    const AcDbObjectId plain = add("0 INSERT|2 MARKER|10 5|20 5|66 1");
    EXPECT_EQ(in(-100, -100, 100, 100, true), "");
    EXPECT_NE(host::lastDrawn(store), plain);
    const host::Index reference = host::Store::resolve(plain)->self;
    add("0 ATTRIB|10 5|20 5|40 1|1 hidden|2 TAG|70 1", reference);
    EXPECT_EQ(in(-100, -100, 100, 100, true), "");
    add("0 ATTRIB|10 5|20 5|40 1|1 shown|2 TAG2|70 0", reference);
    EXPECT_EQ(at(5.5, 5.5), "c");
}

TEST_F(BlockHits, LayersOfContentAndReference) {
    addRecord("LAYER", "0 LAYER|2 walls|70 0|62 7");
    addRecord("LAYER", "0 LAYER|2 off|70 0|62 -7");
    add("0 LINE|8 walls|10 0|20 5|11 1|21 5", square);  // b and c, inside the block
    add("0 LINE|8 off|10 0|20 6|11 1|21 6", square);
    add("0 INSERT|2 SQUARE|8 walls|10 1|20 0");  // d
    EXPECT_EQ(at(0.5, 1), "d");
    EXPECT_EQ(at(0.5, 5), "d");
    EXPECT_EQ(at(0.5, 6), "");
    add("0 INSERT|2 SQUARE|8 off|10 11|20 0");
    EXPECT_EQ(at(10.5, 1) + at(10.5, 5), "e") << "layer 0 inside is off, another one is not";
    setTag(*store.symbol("LAYER", L"0"), 62, "-7");
    EXPECT_EQ(at(0.5, 1), "d") << "layer 0 inside follows the reference";
    EXPECT_EQ(at(0.5, 6), "");
}

TEST_F(BlockHits, CyclesDepthAndMultiplicationEnd) {
    add("0 INSERT|2 SQUARE|10 3|20 0", square);  // b refers to its own block
    std::string inner = "SQUARE";
    for (int level = 0; level < 20; ++level) {
        const std::string name = "LEVEL" + std::to_string(level);
        const host::Index record = addBlock(name);
        for (int i = 0; i < 8; ++i)
            add("0 INSERT|2 " + inner + "|10 0|20 0|70 30000|71 30000|44 1|45 1", record);
        inner = name;
    }
    const AcDbObjectId top = add("0 INSERT|2 " + inner + "|10 0|20 0");
    EXPECT_NE(host::lastDrawn(store), top) << "deeper than 16 levels";
    add("0 INSERT|2 LEVEL3|10 0|20 0|70 2000000000|71 2000000000");
    EXPECT_NE(at(-1, 0.5), "");
    EXPECT_EQ(at(1000.5, 1000), "") << "inside a frame";
    const AcDbObjectId small = add("0 INSERT|2 SQUARE|10 -9|20 0|70 3|44 2");
    EXPECT_EQ(host::lastDrawn(store), small);
    EXPECT_EQ(at(-10, 0.5).size(), 1u) << "others are drawn in full behind a frame";
    EXPECT_TRUE(
        holds(host::effectText(host::EffectKind::CommandLine),
              L"1 entity is taken as frames: what they repeat is more than is drawn at once."));
}

TEST_F(HitTest, OldPolylinesDrawTheirVertices) {
    const AcDbObjectId id = add("0 POLYLINE|66 1|10 0|20 0|70 1");
    const host::Index owner = host::Store::resolve(id)->self;
    for (const char* vertex : {"10 0|20 0", "10 4|20 0|42 1", "10 4|20 4"})
        add(std::string("0 VERTEX|70 0|") + vertex, owner);
    EXPECT_EQ(at(6, 2), "a") << "the bulge";
    EXPECT_EQ(at(2, 2), "a") << "the closing side";
    EXPECT_EQ(at(4, 2), "");
}

TEST_F(HitTest, DrawingOrderAndPickBox) {
    add("0 LINE|10 0|20 0|11 10|21 0");
    add("0 LINE|10 5|20 -5|11 5|21 5");
    EXPECT_EQ(at(5, 0), "ab");
    const double radius = host::pickRadius(store);
    set(L"PICKBOX", L"6");
    EXPECT_DOUBLE_EQ(host::pickRadius(store), 2 * radius);
    EXPECT_DOUBLE_EQ(radius, 3 * host::viewHeight(store) / 1000);
}

TEST_F(HitTest, APickTakesTheNearestAndOfEquallyNearTheNewest) {
    add("0 LINE|10 0|20 0|11 10|21 0");
    add("0 LINE|10 0|20 0.4|11 10|21 0.4");
    add("0 SOLID|10 0|20 -9|11 9|21 -9|12 0|22 9|13 9|23 9");
    const auto picked = [&](double x, double y) {
        return letters({host::entityUnder(store, {x, y, 0})});
    };
    EXPECT_EQ(picked(5, 0.1) + picked(5, 0.3) + picked(5, 0.2), "abb");
    EXPECT_EQ(picked(5, 5), "c") << "a filling, where there is nothing else";
    EXPECT_EQ(host::entityUnder(store, {500, 0, 0}), AcDbObjectId());
}

TEST_F(HitTest, TheViewIsThatOfTheDrawingOrShowsAllOfIt) {
    EXPECT_EQ(host::viewHeight(store), 297);
    add("0 LINE|10 0|20 0|11 30|21 10");
    host::ObjectBody& view = *store.symbol("VPORT", L"*Active");
    setTag(view, 40, "0.0");
    const std::uint64_t revision = store.revision;
    EXPECT_EQ(host::viewHeight(store), 20) << "30 wide on a screen of 3 to 2";
    EXPECT_EQ(store.revision, revision) << "looking changes nothing";
    EXPECT_TRUE(host::showBox(store, {0, 0, 3, 8}));
    EXPECT_FALSE(host::showBox(store, {1, 1, 1, 1}));
    EXPECT_TRUE(host::scaleView(store, 0.5));
    EXPECT_EQ(host::findTag(view.tags(), 40)->value, "4.0");
    EXPECT_EQ(host::findTag(view.tags(), 22)->value, "4.0");
    store.setErased(view, true);
    EXPECT_EQ(host::viewHeight(store), 20) << "no place for a view";
    EXPECT_TRUE(host::showBox(store, {0, 0, 1, 2}));
    EXPECT_EQ(host::viewHeight(store), 2);
}

TEST_F(HitTest, AbsurdNumbersAreHarmless) {
    add("0 CIRCLE|10 1e308|20 1e308|40 1e308");
    add("0 ARC|10 0|20 0|40 nan|50 1e300|51 -1e300");
    add("0 ELLIPSE|10 0|20 0|11 0|21 0|40 0|41 1e300|42 inf");
    add("0 LWPOLYLINE|10 0|20 0|42 1e300|10 0|20 0|42 1e-300");
    add("0 TEXT|10 0|20 0|40 -1e308|1 x|41 1e308");
    add("0 INSERT|2 NOWHERE|10 0|20 0");
    add("0 HATCH|91 1|92 7|10 0|72 99999999999999999999");
    add("0 LINE|10 0");
    EXPECT_NE(in(-1e300, -1e300, 1e300, 1e300, true), "");
    EXPECT_EQ(at(1e300, 0), "");
}

}  // namespace
}  // namespace tests
