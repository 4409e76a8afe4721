// Files that are no sound drawings: each gives one clear line.
#include "drawing_text.h"

namespace tests {
namespace {

using BadInput = DrawingFiles;

TEST_F(BadInput, WhatIsNoDxfIsRefusedByName) {
    EXPECT_EQ(loadError(""), "bad.dxf: the file is empty; choose a DXF drawing");
    EXPECT_EQ(loadError("AutoCAD Binary DXF\r\n\x1a"),
              "bad.dxf: this is a binary DXF; save it as ASCII DXF 2000 or later");
    EXPECT_EQ(loadError("AC1027\n"),
              "bad.dxf: this is a DWG drawing (AC1027); save it as ASCII DXF 2000 or later");
    EXPECT_EQ(loadError("\xFF\xFE"
                        "0"),
              "bad.dxf: this is UTF-16 text; save it as ASCII DXF 2000 or later");
    EXPECT_EQ(loadError("hello\nworld\n"),
              "bad.dxf:1: \"hello\" is no group code; this is not a DXF drawing");
    EXPECT_EQ(loadError("  1\nLINE\n"),
              "bad.dxf:1: the file does not begin with group 0; this is not a DXF drawing");
}

TEST_F(BadInput, MissingFilesFoldersAndPipesAreNotWaitedFor) {
    host::DxfError error;
    EXPECT_EQ(host::loadDrawing(path("none.dxf"), error), nullptr);
    EXPECT_EQ(error.text, "cannot be read: No such file or directory; choose a DXF drawing");
    EXPECT_EQ(host::loadDrawing(path(""), error), nullptr);
    EXPECT_EQ(error.text, "cannot be read: Is a directory; choose a DXF drawing");
    EXPECT_EQ(host::loadDrawing("/dev/zero", error), nullptr);
    EXPECT_EQ(error.message(),
              "/dev/zero: cannot be read: Is not a regular file; choose a DXF drawing");
    const std::string sample = SAMPLES_FOLDER "/plan.dxf";
    EXPECT_EQ(host::loadDrawing(sample, error, [](double) { return false; }), nullptr);
    EXPECT_EQ(error.text, "loading was interrupted");
}

const Damage kDamages[] = {
    {"9 $ACADVER|1 AC1027|", "",
     ": the drawing has no $ACADVER, so it is older than 2000; save it as ASCII DXF 2000 or later"},
    {"AC1027", "AC1009",
     ":8: version AC1009 is older than 2000; save it as ASCII DXF 2000 or later"},
    {"AC1027", "AC1099", ":8: version AC1099 is not known; save it as ASCII DXF 2000 to 2018"},
    {"70 3", "7O 3", ":39: \"7O\" is no group code; repair the line or save the drawing anew"},
    {"70 3", "-70 3", ":39: \"-70\" is no group code; repair the line or save the drawing anew"},
    {"70 3", "1072 3",
     ":39: group code \"1072\" is out of range (0 to 1071); repair the line or save the "
     "drawing "
     "anew"},
    {"5 11", "5 XY", ":44: \"XY\" is no handle of an object; repair the line or remove the group"},
    {"5 11", "5 0", ":44: \"0\" is no handle of an object; repair the line or remove the group"},
    {"5 12", "5 11",
     ":58: handle 11 belongs to the object in line 41 already; give one of them a free handle"},
    {"2 ByBlock", "2 \xE4",
     ":52: the text is not well-formed UTF-8; save the drawing anew in its own encoding"},
    {"AC1027", "AC1015|9 $DWGCODEPAGE|3 EBCDIC",
     ":12: code page \"EBCDIC\" is not known here; save the drawing as DXF 2007 or later"},
    {"AC1027", "AC1015|9 $DWGCODEPAGE|3 ANSI_932|1 \x81",
     ":14: the text is not well-formed ANSI_932; save the drawing anew in its own encoding"},
    {"0 ENDSEC\n0 SECTION|2 CLASSES", "0 SECTION|2 CLASSES",
     ":17: section HEADER (line 1) has no ENDSEC before SECTION; repair the line or save the "
     "drawing anew"},
    {"2 CLASSES", "2 HEADER",
     ":19: section HEADER stands here a second time (first in line 1); remove one of them"},
    {"0 ENDTAB\n", "",
     ":83: table LTYPE (line 29) has no ENDTAB before TABLE; repair the line or save the "
     "drawing "
     "anew"},
    {"0 EOF\n", "0 LINE\n",
     ":609: LINE stands outside of any section; repair the line or save the drawing anew"},
    {"2 Door|340 0", "2 *MODEL_SPACE|340 0",
     ":211: block record *MODEL_SPACE was defined in line 183 already; rename one of them"},
    {"100 AcDbBlockBegin|2 Door", "100 AcDbBlockBegin|2 *model_space",
     ":289: block *model_space was defined in line 233 already; rename one of them"},
    {"0 SEQEND|5 34|330 32|100 AcDbEntity|8 0\n", "",
     ":419: the sequence of the INSERT (line 383) has no SEQEND before POLYLINE; repair the "
     "line "
     "or save the drawing anew"},
    {"0 ENDBLK|5 21|330 17|100 AcDbEntity|8 0|100 AcDbBlockEnd\n", "",
     ":249: block *Model_Space (line 233) has no ENDBLK before BLOCK; repair the line or save "
     "the drawing anew"},
};

TEST_F(BadInput, DamageIsToldWithItsLine) {
    for (const Damage& damage : kDamages) {
        EXPECT_EQ(loadError(tagsOf(with(kDrawing, damage.part, damage.replacement))),
                  std::string("bad.dxf") + damage.told);
    }
    EXPECT_EQ(loadError(tagsOf(with(kDrawing, "ByBlock", std::string("a\0b", 3)))),
              "bad.dxf:52: the line holds a NUL byte; this is no sound DXF drawing");
}

TEST_F(BadInput, EndlessLinesAndDeepNestingAreHarmless) {
    const std::string endless = with(tagsOf(kDrawing), "ByBlock", std::string(3 << 20, 'x'));
    EXPECT_EQ(loadError(endless),
              "bad.dxf:52: the line is longer than 1048575 bytes; this is no "
              "sound DXF drawing");
    const std::string circle =
        with(kDrawing, "0 DICTIONARY|5 50|330 30", "0 DICTIONARY|5 50|330 51");
    EXPECT_TRUE(holds(findings(tagsOf(circle)), "the owners go round in a circle"));
    std::string brackets;
    for (int i = 0; i < 100000; ++i)
        brackets += "102\n{\n";
    EXPECT_EQ(loadError(with(tagsOf(kDrawing), " 70\n0\n", brackets)), "loaded");
}

}  // namespace
}  // namespace tests
