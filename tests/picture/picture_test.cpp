// Whole pictures: words, frames, areas, groups, and what keeps them small and well-formed.
#include <algorithm>
#include <regex>

#include "editor/editor_fixture.h"
#include "inspection/inspection.h"
#include "picture/svg/picture.h"

namespace tests {
namespace {

class PictureTest : public EditorTest {
  protected:
    std::string draw(const picture::Choice& choice = {}) const {
        return picture::draw(store, store.modelSpace(), "a.dxf", "Model", inspection, choice);
    }
    /// What stands in the first group of all matches, parted by bars.
    static std::string all(const std::string& svg, const std::string& pattern) {
        const std::regex form(pattern);
        std::string found;
        for (std::sregex_iterator at(svg.begin(), svg.end(), form), end; at != end; ++at)
            found += (found.empty() ? "" : "|") + (*at)[1].str();
        return found;
    }
    /// The words of an entity with these tags, line by line, in an empty drawing.
    std::string words(const std::string& tags) {
        const AcDbObjectId id = add(tags);
        const std::string svg = draw();
        erase(id);
        return all(svg, "<text(?! class=\"(?:head|small|note))[^>]*>([^<]*)</text>");
    }
    /// Finds the entities to be a group.
    void group(std::initializer_list<AcDbObjectId> members, inspection::State verdict,
               const std::string& reason = "") {
        inspection::Group& made = inspection.groups.emplace_back();
        made.space = "Model";
        for (const AcDbObjectId id : members)
            made.members.push_back({id, "", "LINE", "0"});
        made.state = verdict;
        made.reason = reason;
    }

    inspection::Inspection inspection;
};

TEST_F(PictureTest, WordsStandWithoutTheirCodes) {
    const std::pair<const char*, const char*> cases[] = {
        {"0 TEXT|10 0|20 0|40 2|1 %%c5 %%d%%p%%% %%uunder%%O 100%%", "⌀5 °±% under 100%%"},
        {"0 TEXT|10 0|20 0|40 2|1 a\\U+FFFEb\\U+FFFFc\x01\\U+0041 <\"&>",
         "abcA &lt;&quot;&amp;&gt;"},
        {"0 TEXT|10 0|20 0|40 2|1 ", ""},
        {"0 MTEXT|10 0|20 0|40 2|1 \\A1;{\\fArial;H\\H0.7x;\\S1#2;}\\S3^4; \\S5/6; mm",
         "H1/23/4 5/6 mm"},
        {"0 MTEXT|10 0|20 0|40 2|3 a\\~b\\Pc^J\\Ld\\l|1 \\{e\\\\f\\}\\", "a\u00a0b|c|d{e\\f}\\"},
        {"0 MTEXT|10 0|20 0|40 1|41 8|1 one two three four five", "one two|three four|five"},
        {"0 MTEXT|10 0|20 0|40 1|41 8|1 \\fUnclosed", ""},
        {"0 TEXT|10 0|20 0|40 0|1 no height", ""},
    };
    for (const auto& [groups, shown] : cases)
        EXPECT_EQ(words(groups), shown) << groups;
}

TEST_F(PictureTest, WordsKeepTheirPlace) {
    add("0 TEXT|10 0|20 0|40 1|1 ab|50 90|41 2");
    add("0 TEXT|10 9|20 9|11 5|21 5|40 1|1 centred|72 1|73 2");
    add("0 TEXT|10 0|20 9|11 8|21 9|40 1|1 stretched|72 5");
    add("0 MTEXT|10 0|20 5|40 1|71 3|1 right");
    const std::string svg = draw();
    EXPECT_TRUE(holds(svg, "matrix(0 -2 1 0 ")) << "turned, and twice as wide";
    EXPECT_EQ(all(svg, "text-anchor=\"(\\w+)\"[^>]*>(?:centred|right)"), "middle|end");
    EXPECT_EQ(all(svg, "lengthAdjust=\"(\\w+)\" textLength=\"[0-9.]+\">stretched"),
              "spacingAndGlyphs");
}

TEST_F(PictureTest, WhatHasNoFormIsAFrameOrCounted) {
    add("0 IMAGE|10 1|20 1|11 0.1|21 0|12 0|22 0.1|13 40|23 20");
    add("0 OLE2FRAME|10 0|20 30|11 20|21 10");
    add("0 ACAD_PROXY_ENTITY|10 30|20 0|10 40|20 9");
    add("0 WIPEOUT|10 5|20 5|11 6|21 0|12 0|22 3");
    add("0 VIEWPORT|10 20|20 20|40 10|41 4|69 2");
    add("0 3DSOLID|70 1");
    add("0 3DSOLID|70 1");
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "<text class=\"note[^>]*>(\\w+)<"),
              "IMAGE|OLE2FRAME|ACAD_PROXY_ENTITY|WIPEOUT|VIEWPORT");
    EXPECT_EQ(all(svg, "(not drawn[^<]*)<"), "not drawn: 2 3DSOLID");
    EXPECT_EQ(all(svg, "<title>(\\w+) "), "IMAGE|OLE2FRAME|ACAD_PROXY_ENTITY|WIPEOUT|VIEWPORT");
}

TEST_F(PictureTest, AreasAreFilledAndHatchesTinted) {
    const std::string square = "|91 1|92 2|72 0|73 1|93 3|10 0|20 0|10 4|20 0|10 4|20 4|97 0|75 0";
    add("0 SOLID|10 0|20 0|11 4|21 0|12 0|22 4|13 4|23 4");
    add("0 HATCH|2 SOLID|70 1" + square);
    add("0 HATCH|2 CROSS|70 0" + square);
    add("0 POINT|10 9|20 9");
    EXPECT_EQ(all(draw(), "<path class=\"(\\w(?: s)?) k0"), "f|h s|h|o");
}

TEST_F(PictureTest, LineTypesAreDashesInUnitsOfTheirBlock) {
    store.setHeaderValue("$LTSCALE", 40, "2.0");
    addRecord("LTYPE", "0 LTYPE|2 DASHDOT|70 0|73 4|40 4|49 2|49 -1|49 0|49 -1");
    addRecord("LTYPE", "0 LTYPE|2 GAP|70 0|73 3|40 4|49 1|49 -2|49 1");
    addRecord("LAYER", "0 LAYER|2 walls|70 0|62 7|6 Gap");
    const host::Index block = addBlock("B");
    add("0 LINE|6 DashDot|10 0|20 0|11 90|21 0", block);
    add("0 LINE|6 ByBlock|10 0|20 0|11 90|21 90", block);
    add("0 INSERT|2 B|8 walls|10 0|20 0|41 3|42 3");
    add("0 LINE|8 walls|48 0.5|10 0|20 0|11 0|21 90");
    add("0 LINE|6 DASHDOT|48 1e-4|10 0|20 0|11 0|21 90");
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "<path class=\"(k0[^\"]*)\""), "k0 d0|k0 d1|k0 d2|k0");
    EXPECT_EQ(all(svg, "stroke-dasharray:([0-9.]+ [0-9.]+)[0-9. ]*\\}"), "12 6|2 2|12 12");
}

TEST_F(PictureTest, HatchLinesEndAtTheBoundaryOrATintStandsForThem) {
    // A square of 10 with a square hole of 4 in it, in lines 5 apart that begin at (1, 0).
    const std::string hatch =
        "0 HATCH|2 L|70 0|91 2|92 2|72 0|73 1|93 4|10 0|20 0|10 10|20 0|10 10|20 10|10 0|20 10|97 "
        "0|92 2|72 0|73 1|93 4|10 3|20 3|10 7|20 3|10 7|20 7|10 3|20 7|97 0|75 0|76 1|52 0|41 1|77 "
        "0|";
    const std::string end = "|98 1|10 1|20 1";
    add(hatch + "78 1|53 0|43 1|44 1|45 0|46 4|79 0" + end);
    EXPECT_EQ(all(draw(), "<path class=\"p k0\" d=\"([^\"]*)\""), "M0 9h10M0 5h3M7 5h3M0 1h10");
    add(hatch + "78 1|53 0|43 1|44 5|45 0|46 8|79 2|49 2|49 -1" + end);
    EXPECT_TRUE(holds(draw(), "\"M1 5h2M7 5h2\""));
    add(hatch + "78 1|53 45|43 0|44 0|45 0|46 1e-9|79 0" + end);
    EXPECT_EQ(all(draw(), "<path class=\"(h[ n]*) k0"), "h n|h n|h") << "too dense";
    add("0 HATCH|2 L|70 0|91 1|92 1|93 1|72 2|10 20|20 0|40 4|50 0|51 360|73 0|97 0|75 0|78 1|53 0|"
        "43 0|44 0|45 0|46 4|79 0" +
        end);
    EXPECT_TRUE(holds(draw(), "<path class=\"p k0\" d=\"M16 10h8\"")) << "at the seam of a circle";
}

TEST_F(PictureTest, AChoiceIsDrawnAlone) {
    addRecord("LAYER", "0 LAYER|2 Walls|70 0|62 7");
    const AcDbObjectId a = add("0 LINE|8 Walls|10 0|20 0|11 9|21 9");
    group({a, add("0 LINE|10 40|20 0|11 49|21 9")}, inspection::State::Whole);
    group({add("0 LINE|10 0|20 40|11 9|21 49")}, inspection::State::Whole);
    add("0 LINE|10 60|20 0|11 61|21 0");
    picture::Choice layer, second, window;
    layer.layers = L"wa*";
    second.group = 2;
    window.window = host::Box{30, -5, 62, 5};
    const auto shown = [&](const picture::Choice& choice) {
        const std::string svg = draw(choice);
        return all(svg, "Model, ([^<]*)<") + ";" + all(svg, "id=\"(group\\d)\"");
    };
    EXPECT_EQ(shown(layer), "1 entity, 1 group;group1");
    EXPECT_EQ(shown(second), "1 entity, 1 group;group2");
    add("0 XLINE|10 0|20 1|11 1|21 0");
    EXPECT_EQ(shown(window), "3 entities, 1 group;group1");
    EXPECT_TRUE(holds(draw(window), "clip-path=\"url(#window)\""));
}

TEST_F(PictureTest, EntitiesOfLargeDrawingsShareThePathsOfTheirInk) {
    addRecord("LAYER", "0 LAYER|2 red|70 0|62 1");
    for (int i = 0; i <= 10000; ++i) {
        const std::string y = std::to_string(i);
        add("0 LINE|10 0|20 " + y + "|11 9|21 " + y);
        add("0 LINE|8 red|10 10|20 " + y + "|11 19|21 " + y);
    }
    add("0 SOLID|10 0|20 0|11 4|21 0|12 0|22 4");
    add("0 TEXT|10 0|20 0|40 50|1 words");
    const std::string svg = draw();
    const std::string paths = all(svg, "<path class=\"([fk][^\"]*)\"");
    EXPECT_EQ(paths.substr(0, 4), "f k0") << "areas below strokes";
    EXPECT_LT(paths.size(), 60u);
    EXPECT_FALSE(holds(svg, "<title>"));
    EXPECT_LT(svg.find("d=\"M"), svg.find(">words<"));
    EXPECT_LT(svg.size(), 600000u);
}

TEST_F(PictureTest, ReferencesShowTheirBlockInTheirInk) {
    addRecord("LAYER", "0 LAYER|2 walls|70 0|62 1|370 70");
    const host::Index block = addBlock("B");
    add("0 LINE|8 0|62 0|10 0|20 0|11 5|21 5", block);
    add("0 LINE|8 walls|370 -1|10 0|20 5|11 5|21 0", block);
    add("0 LINE|8 walls|420 255|10 0|20 5|11 5|21 5", block);
    add("0 INSERT|2 B|62 3|10 0|20 0");
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "<path class=\"(k[^\"]*)\""), "k0|k1 w70|k2 w70");
    EXPECT_TRUE(holds(svg, ", block B, layer 0</title>"));
    EXPECT_EQ(all(svg, "\\.(w70\\{--w:[^}]*)\\}"), "w70{--w:2.24px");
}

TEST_F(PictureTest, GroupsHaveColoursLabelsAndLinesInTheLegend) {
    const auto line = [&](int y) {
        const std::string at = std::to_string(y);
        return add("0 LINE|10 0|20 " + at + "|11 9|21 " + at);
    };
    const AcDbObjectId first = line(1);
    line(5);  // between members in drawing order and none
    group({first, line(2)}, inspection::State::Whole);
    group({line(3)}, inspection::State::Short,
          "1 member is gone & lost, for whatever reason that is");
    line(4);
    inspection.strays.push_back({"C", "LINE", "marker", "Model", "alone"});
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "class=\"(g q\\d[ bad]*)\""), "g q0|g q1 bad");
    EXPECT_EQ(all(svg, "<g class=\"tag[^>]*>.*?<text[^>]*>([^<]*)<"),
              "1 · 2 members|2 · 1 member, short");
    EXPECT_EQ(all(svg, "class=\"why\"[^>]*>([^<]*)<").substr(0, 27), "1 member is gone &amp; lost");
    EXPECT_EQ(all(svg, "(Model, [^<]*)<"), "Model, 5 entities, 2 groups, 1 not whole");
    EXPECT_TRUE(holds(svg, "1 stray marker or record; --groups lists it"));
    const std::string members = all(svg, "<g class=\"m\" id=\"h(\\w+)\"");
    EXPECT_EQ(members, all(svg, "<title>LINE (\\w+), layer 0, group"));
    EXPECT_EQ(std::count(members.begin(), members.end(), '|'), 2) << members;
}

TEST_F(PictureTest, WhatHasNoPlaceOrNoEndStaysOut) {
    EXPECT_TRUE(holds(draw(), "0 entities"));
    add("0 CIRCLE|10 1e300|20 0|40 1e300");
    add("0 TEXT|10 0|20 0|40 1e308|1 x");
    EXPECT_TRUE(holds(draw(), "0 entities"));
    add("0 XLINE|10 3|20 3|11 1|21 0");
    add("0 LINE|10 0|20 0|11 0|21 0");
    const std::string svg = draw();
    EXPECT_FALSE(holds(svg, "nan"));
    EXPECT_TRUE(holds(svg, "h0\"")) << "a line without length is a dot";
}

TEST_F(PictureTest, MarkupInNamesIsText) {
    addRecord("LAYER", "0 LAYER|2 <b>&|70 0|62 7");
    add("0 LINE|8 <b>&|10 0|20 0|11 1|21 1");
    const std::string svg =
        picture::draw(store, store.modelSpace(), "\xff<script>.dxf", "Model", inspection);
    EXPECT_FALSE(holds(svg, "<b>"));
    EXPECT_TRUE(holds(svg, "\xef\xbf\xbd&lt;script&gt;.dxf"));
}

}  // namespace
}  // namespace tests
