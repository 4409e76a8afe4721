// The drawing check: each kind of damage gives its one finding.
#include "drawing_text.h"
#include "host/store/store.h"

namespace tests {
namespace {

using Check = DrawingFiles;

TEST_F(Check, ASoundDrawingAndANewOneHaveNoFindings) {
    EXPECT_EQ(findings(tagsOf(kDrawing)), "");
    const char* const data = "1 data|102 ATTRRECORD}|102 }|102 {ACAD_XDICTIONARY|360 51|100 X";
    EXPECT_EQ(findings(tagsOf(with(kDrawing, "1 data", data))), "");
    // An XRECORD may be owned by other objects than dictionaries.
    EXPECT_EQ(findings(tagsOf(with(kDrawing, "0 LAYOUT|5 61",
                                   "0 ACDBDATATABLE|5 63|330 40|100 AcDbDataTable|360 64\n"
                                   "0 XRECORD|5 64|330 63|100 AcDbXrecord|1 cell\n0 LAYOUT|5 61"))),
              "");
    const std::string text = read(TESTS_FOLDER "/../host/dxf/load/new_drawing.dxf");
    EXPECT_EQ(findings(text), "");
    EXPECT_EQ(saved(*host::newDrawing()), text);
}

TEST_F(Check, DamageIsFound) {
    const Damage damages[] = {
        {"9 $HANDSEED|5 100", "9 $HANDSEED|5 62",
         "$HANDSEED 62 is not above the highest handle 62"},
        {"9 $CLAYER|8 0", "9 $CLAYER|8 no", "$CLAYER names LAYER \"no\", which is not defined"},
        {"0 LAYER|5 14|330 2", "0 LAYER|5 14|330 3", "LAYER 14: the owner is TABLE 3, not TABLE 2"},
        {"0 CIRCLE|5 26|330 19", "0 CIRCLE|5 26|330 99",
         "CIRCLE 26: the owner 99 is not in the drawing, not BLOCK_RECORD 19"},
        {"0 XRECORD|5 51|330 50", "0 XRECORD|5 51|330 30",
         "DICTIONARY 50: entry \"REC\" is XRECORD 51, which another object owns\n"
         "XRECORD 51: the owner is LINE 30, not a dictionary"},
        {"0 DICTIONARY|5 41|330 40", "0 DICTIONARY|5 41|330 0",
         "note: DICTIONARY 40: entry \"ACAD_GROUP\" is DICTIONARY 41, which another object owns\n"
         "DICTIONARY 41: the owner is 0"},
        {"2 Door|340 0", "2 Gate|340 0",
         "BLOCK_RECORD \"Door\" was missing and was supplied\n"
         "BLOCK_RECORD 19: there is no BLOCK of the name \"Gate\"\n"
         "BLOCK 24: the owner is BLOCK_RECORD 19, not BLOCK_RECORD 100\n"
         "CIRCLE 26: the owner is BLOCK_RECORD 19, not BLOCK_RECORD 100\n"
         "ENDBLK 25: the owner is BLOCK_RECORD 19, not BLOCK_RECORD 100"},
        {"1 Sheet|330 18", "1 Sheet|330 17",
         "BLOCK_RECORD 18: its layout 62 does not point back\n"
         "LAYOUT 62: its block record 17 does not point back"},
        {"2 *Paper_Space|340 62", "2 *Paper_Space|340 0",
         "BLOCK_RECORD 18: the space has no layout\n"
         "LAYOUT 62: its block record 18 does not point back"},
        {"360 50|102 }", "360 99|102 }",
         "LINE 30: group 360 points at 99, which is not in the drawing"},
        {"360 50|102 }", "360 51|102 }", "LINE 30: the extension dictionary 51 is a XRECORD"},
        {"360 50|102 }", "360 41|102 }",
         "LINE 30: the extension dictionary 41 is owned by another object"},
        {"3 REC|360 51", "3 REC", "DICTIONARY 50: entry \"REC\" names nothing"},
        {"340 38|340 30", "340 38|340 99",
         "GROUP 43: group 340 points at 99, which is not in the drawing"},
        {"340 38|340 30", "340 38|340 ", "GROUP 43: group 340 is an empty pointer"},
        {"1 data|330 38", "1 data|330 99",
         "note: XRECORD 51: group 330 points at 99, which is not in the drawing"},
        {"6 CONTINUOUS", "6 DOT", "LAYER 14: LTYPE \"DOT\" is not defined"},
        {"67 1|8 0", "67 1|8 Wall", "note: LINE 31: LAYER \"Wall\" is not defined"},
        {"|7 Standard", "|7 Other", "TEXT 38: STYLE \"Other\" is not defined"},
        {"0 GROUP|5 43|330 41", "0 MLINESTYLE|5 43|330 41|100 AcDbMlineStyle|6 DOT",
         "note: MLINESTYLE 43: LTYPE \"DOT\" is not defined"},
        {"66 1|2 Door", "66 1|2 Gate", "INSERT 32: BLOCK_RECORD \"Gate\" is not defined"},
        {"1001 ACAD", "1001 MINE", "LINE 31: APPID \"MINE\" is not defined"},
        {"66 1|2 Door", "66 0|2 Door", "INSERT 32: has attributes and does not announce them (66)"},
        {"0 SEQEND|5 34|330 32", "0 SEQEND|5 34|330 17",
         "note: SEQEND 34: the owner is BLOCK_RECORD 17, not INSERT 32"},
        {"0 SEQEND|5 34|330 32", "0 SEQEND|5 34|330 18",
         "SEQEND 34: the owner is BLOCK_RECORD 18, not INSERT 32"},
        {"0 TEXT|5 38|330 17|100 AcDbEntity|8 0|100 AcDbText|1   text  |7 Standard|100 AcDbText",
         "0 IMAGE|5 38|330 17|100 AcDbEntity|8 0|100 AcDbRasterImage|360 99",
         "note: IMAGE 38: group 360 points at 99, which is not in the drawing"},
        {"0 GROUP|5 43|330 41", "0 IMAGEDEF_REACTOR|5 43|330 99",
         "note: DICTIONARY 41: entry \"G\" is IMAGEDEF_REACTOR 43, which another object owns\n"
         "note: IMAGEDEF_REACTOR 43: the owner 99 is not in the drawing"},
        {"0 SEQEND|5 37|330 35|100 AcDbEntity|8 0\n",
         "0 SEQEND|5 37|330 35|100 AcDbEntity|8 0\n0 SEQEND|5 39|330 17|100 AcDbEntity|8 0\n",
         "SEQEND 39: belongs to no entity"},
        {"100 AcDbText|1 A|100 AcDbAttribute", "100 AcDbAttribute|1 A|100 AcDbText",
         "ATTRIB 33: subclass markers are \"AcDbEntity, AcDbAttribute, AcDbText\" in place of "
         "\"AcDbEntity, AcDbText, AcDbAttribute\""},
        {"10 1.50", "10 nan", "LINE 30: group 10 is no finite number: \"nan\""},
        {"70 0|340 38", "70 1e9|340 38", "GROUP 43: group 70 is no integer: \"1e9\""},
        {"10 1.50", "10 1.50|102 {MINE", "LINE 30: a bracket (102) is never closed"},
        {"0 TEXT|5 38|330 17", "0 TEXT|5 38",
         "note: 1 objects have no owner group (330); their place tells the owner"},
    };
    for (const Damage& damage : damages) {
        const std::string text = tagsOf(with(kDrawing, damage.part, damage.replacement));
        EXPECT_EQ(findings(text), std::string(damage.told) + "\n");
    }
}

}  // namespace
}  // namespace tests
