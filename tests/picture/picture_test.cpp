// Whole pictures: words, frames, areas, groups, and what keeps them small and well-formed.
#include "picture/picture_fixture.h"

#include "host/tags/tags.h"

namespace tests {
namespace {

TEST_F(PictureTest, WordsStandWithoutTheirCodes) {
    const struct {
        const char* groups;
        const char* shown;
    } cases[] = {
        {"TEXT;10 0;20 0;40 2;1 %%c5 %%d%%p%%% %%uunder%%O 100%%", "⌀5 °±% under 100%%"},
        {"TEXT;10 0;20 0;40 2;1 a\\U+FFFEb\\U+FFFFc\x01\\U+0041 <\"&>", "abcA &lt;&quot;&amp;&gt;"},
        {"TEXT;10 0;20 0;40 2;1 ", ""},
        {"MTEXT;10 0;20 0;40 2;1 \\A1${\\fArial$H\\H0.7x$\\S1#2$}\\S3^4$ \\S5/6$ mm",
         "H1/23/4 5/6 mm"},
        {"MTEXT;10 0;20 0;40 2;3 a\\~b\\Pc^J\\Ld\\l;1 \\{e\\\\f\\}\\", "a\u00a0b|c|d{e\\f}\\"},
        {"MTEXT;10 0;20 0;40 1;41 8;1 one two three four five", "one two|three four|five"},
        {"MTEXT;10 0;20 0;40 1;41 8;1 \\fUnclosed", ""},
        {"TEXT;10 0;20 0;40 0;1 no height", ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(words(each.groups), each.shown) << each.groups;
}

TEST_F(PictureTest, WordsKeepTheirPlace) {
    add("TEXT;10 0;20 0;40 1;1 ab;50 90;41 2");
    add("TEXT;10 9;20 9;11 5;21 5;40 1;1 centred;72 1;73 2");
    add("TEXT;10 0;20 9;11 8;21 9;40 1;1 stretched;72 5");
    add("MTEXT;10 0;20 5;40 1;71 3;1 right");
    const std::string svg = draw();
    EXPECT_NE(svg.find("matrix(0 -2 1 0 "), svg.npos) << "turned, and twice as wide";
    EXPECT_EQ(all(svg, "text-anchor=\"(\\w+)\"[^>]*>(?:centred|right)"), "middle|end");
    EXPECT_EQ(all(svg, "lengthAdjust=\"(\\w+)\" textLength=\"[0-9.]+\">stretched"),
              "spacingAndGlyphs");
}

TEST_F(PictureTest, WhatHasNoFormIsAFrameOrCounted) {
    add("IMAGE;10 1;20 1;11 0.1;21 0;12 0;22 0.1;13 40;23 20");
    add("OLE2FRAME;10 0;20 30;11 20;21 10");
    add("ACAD_PROXY_ENTITY;10 30;20 0;10 40;20 9");
    add("WIPEOUT;10 5;20 5;11 6;21 0;12 0;22 3");
    add("VIEWPORT;10 20;20 20;40 10;41 4;69 2");
    add("3DSOLID;70 1");
    add("3DSOLID;70 1");
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "<text class=\"note[^>]*>(\\w+)<"),
              "IMAGE|OLE2FRAME|ACAD_PROXY_ENTITY|WIPEOUT|VIEWPORT");
    EXPECT_EQ(all(svg, "(not drawn[^<]*)<"), "not drawn: 2 3DSOLID");
    EXPECT_EQ(all(svg, "<title>(\\w+) "), "IMAGE|OLE2FRAME|ACAD_PROXY_ENTITY|WIPEOUT|VIEWPORT");
}

TEST_F(PictureTest, AreasAreFilledAndHatchesTinted) {
    const std::string square = ";91 1;92 2;72 0;73 1;93 3;10 0;20 0;10 4;20 0;10 4;20 4;97 0;75 0";
    add("SOLID;10 0;20 0;11 4;21 0;12 0;22 4;13 4;23 4");
    add("HATCH;2 SOLID;70 1" + square);
    add("HATCH;2 CROSS;70 0" + square);
    add("POINT;10 9;20 9");
    EXPECT_EQ(all(draw(), "<path class=\"(\\w(?: s)?) k0"), "f|h s|h|p");
}

TEST_F(PictureTest, ReferencesShowTheirBlockInTheirInk) {
    addRecord("LAYER", "LAYER;2 walls;70 0;62 1;370 70");
    const host::Index block = addBlock("B");
    add("LINE;8 0;62 0;10 0;20 0;11 5;21 5", block);
    add("LINE;8 walls;370 -1;10 0;20 5;11 5;21 0", block);
    add("LINE;8 walls;420 255;10 0;20 5;11 5;21 5", block);
    add("INSERT;2 B;62 3;10 0;20 0");
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "<path class=\"(k[^\"]*)\""), "k0|k1 w70|k2 w70");
    EXPECT_NE(svg.find(", block B, layer 0</title>"), svg.npos);
    EXPECT_EQ(all(svg, "\\.(w70\\{--w:[^}]*)\\}"), "w70{--w:2.24px");
}

TEST_F(PictureTest, GroupsHaveColoursLabelsAndLinesInTheLegend) {
    const auto line = [&](int y) {
        const std::string at = std::to_string(y);
        return add("LINE;10 0;20 " + at + ";11 9;21 " + at);
    };
    group({line(1), line(2)}, inspection::State::Whole);
    group({line(3)}, inspection::State::Short,
          "1 member is gone & lost, for whatever reason that is");
    line(4);
    inspection.strays.push_back({"C", "LINE", "marker", "Model", "alone"});
    const std::string svg = draw();
    EXPECT_EQ(all(svg, "class=\"(g q\\d[ bad]*)\""), "g q0|g q1 bad");
    EXPECT_EQ(all(svg, "<g class=\"tag[^>]*>.*?<text[^>]*>([^<]*)<"),
              "1 · 2 members|2 · 1 member, short");
    EXPECT_EQ(all(svg, "class=\"why\"[^>]*>([^<]*)<").substr(0, 27), "1 member is gone &amp; lost");
    EXPECT_EQ(all(svg, "(Model, [^<]*)<"), "Model, 4 entities, 2 groups, 1 not whole");
    EXPECT_NE(svg.find("1 stray marker or record; --groups lists it"), svg.npos);
    EXPECT_EQ(all(svg, "<g class=\"m\" id=\"h(\\w+)\"").size(),
              all(svg, "<title>LINE (\\w+), layer 0, group").size());
}

TEST_F(PictureTest, WhatHasNoPlaceOrNoEndStaysOut) {
    EXPECT_NE(draw().find("0 entities"), std::string::npos);
    add("CIRCLE;10 1e300;20 0;40 1e300");
    add("TEXT;10 0;20 0;40 1e308;1 x");
    EXPECT_NE(draw().find("0 entities"), std::string::npos);
    add("XLINE;10 3;20 3;11 1;21 0");
    add("LINE;10 0;20 0;11 0;21 0");
    const std::string svg = draw();
    EXPECT_EQ(svg.find("nan"), svg.npos);
    EXPECT_NE(svg.find("h0\""), svg.npos) << "a line without length is a dot";
}

TEST_F(PictureTest, MarkupInNamesIsText) {
    addRecord("LAYER", "LAYER;2 <b>&;70 0;62 7");
    add("LINE;8 <b>&;10 0;20 0;11 1;21 1");
    const std::string svg =
        picture::draw(store, store.modelSpace(), "\xff<script>.dxf", "Model", inspection);
    EXPECT_EQ(svg.find("<b>"), svg.npos);
    EXPECT_NE(svg.find("\xef\xbf\xbd&lt;script&gt;.dxf"), svg.npos);
}

}  // namespace
}  // namespace tests
