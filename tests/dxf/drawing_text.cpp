// A small sound drawing as text, and files to load and save it.
#include "drawing_text.h"

#include <set>

namespace tests {

const std::string kDrawing = R"(0 SECTION|2 HEADER
9 $ACADVER|1 AC1027|9 $HANDSEED|5 100|9 $CLAYER|8 0
0 ENDSEC
0 SECTION|2 CLASSES
0 ENDSEC
0 SECTION|2 TABLES
0 TABLE|2 LTYPE|5 1|330 0|100 AcDbSymbolTable|70 3
0 LTYPE|5 11|330 1|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 ByBlock|70 0
0 LTYPE|5 12|330 1|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 ByLayer|70 0
0 LTYPE|5 13|330 1|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 Continuous|70 0
0 ENDTAB
0 TABLE|2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 1
0 LAYER|5 14|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 0|70 0|6 CONTINUOUS
0 ENDTAB
0 TABLE|2 STYLE|5 3|330 0|100 AcDbSymbolTable|70 1
0 STYLE|5 15|330 3|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 Standard|70 0
0 ENDTAB
0 TABLE|2 APPID|5 4|330 0|100 AcDbSymbolTable|70 1
0 APPID|5 16|330 4|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|2 ACAD|70 0
0 ENDTAB
0 TABLE|2 BLOCK_RECORD|5 5|330 0|100 AcDbSymbolTable|70 3
0 BLOCK_RECORD|5 17|330 5|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Model_Space|340 61
0 BLOCK_RECORD|5 18|330 5|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Paper_Space|340 62
0 BLOCK_RECORD|5 19|330 5|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 Door|340 0
0 ENDTAB
0 ENDSEC
0 SECTION|2 BLOCKS
0 BLOCK|5 20|330 17|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Model_Space|70 0
0 ENDBLK|5 21|330 17|100 AcDbEntity|8 0|100 AcDbBlockEnd
0 BLOCK|5 22|330 18|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *Paper_Space|70 0
0 ENDBLK|5 23|330 18|100 AcDbEntity|8 0|100 AcDbBlockEnd
0 BLOCK|5 24|330 19|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 Door|70 0
0 CIRCLE|5 26|330 19|100 AcDbEntity|8 0|100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 1e-1
0 ENDBLK|5 25|330 19|100 AcDbEntity|8 0|100 AcDbBlockEnd
0 ENDSEC
0 SECTION|2 ENTITIES
0 LINE|5 30|102 {ACAD_XDICTIONARY|360 50|102 }|330 17|100 AcDbEntity|8 0|100 AcDbLine|10 1.50
0 LINE|5 31|330 18|100 AcDbEntity|67 1|8 0|100 AcDbLine|10 2.0|1001 ACAD|1000 in paper space
0 INSERT|5 32|330 17|100 AcDbEntity|8 0|100 AcDbBlockReference|66 1|2 Door|10 0.0
0 ATTRIB|5 33|330 32|100 AcDbEntity|8 0|100 AcDbText|1 A|100 AcDbAttribute|2 T
0 SEQEND|5 34|330 32|100 AcDbEntity|8 0
0 POLYLINE|5 35|330 17|100 AcDbEntity|8 0|100 AcDb2dPolyline|66 1
0 VERTEX|5 36|330 35|100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb2dVertex|10 3.0
0 SEQEND|5 37|330 35|100 AcDbEntity|8 0
0 TEXT|5 38|330 17|100 AcDbEntity|8 0|100 AcDbText|1   text  |7 Standard|100 AcDbText
0 ENDSEC
0 SECTION|2 OBJECTS
0 DICTIONARY|5 40|330 0|100 AcDbDictionary|3 ACAD_GROUP|350 41|3 ACAD_LAYOUT|350 42
0 DICTIONARY|5 41|330 40|100 AcDbDictionary|3 G|350 43
0 DICTIONARY|5 42|330 40|100 AcDbDictionary|3 Model|350 61|3 Sheet|350 62
0 GROUP|5 43|330 41|100 AcDbGroup|70 0|340 38|340 30
0 DICTIONARY|5 50|330 30|100 AcDbDictionary|280 1|3 REC|360 51
0 XRECORD|5 51|330 50|100 AcDbXrecord|280 1|1 data|330 38
0 LAYOUT|5 61|330 42|100 AcDbPlotSettings|100 AcDbLayout|1 Model|330 17
0 LAYOUT|5 62|330 42|100 AcDbPlotSettings|100 AcDbLayout|1 Sheet|330 18
0 ENDSEC
0 EOF
)";

std::string largeDrawing() {
    const std::string content(1000, 'x');
    std::ostringstream texts;
    for (int handle = 0x1000; handle < 0x1000 + 3200; ++handle) {
        texts << "0 TEXT|5 " << std::uppercase << std::hex << handle
              << "|330 17|100 AcDbEntity|8 0|100 AcDbText|1 " << content << "|100 AcDbText\n";
    }
    const std::string drawing = with(kDrawing, "5 100", "5 FFFF");
    return tagsOf(with(drawing, "0 TEXT|5 38", texts.str() + "0 TEXT|5 38"));
}

std::string DrawingFiles::listing() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder.path()))
        names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

std::unique_ptr<host::Store> DrawingFiles::load(const std::string& text) const {
    host::DxfError error;
    auto store = host::loadDrawing(write("load.dxf", text), error);
    EXPECT_NE(store, nullptr) << error.message();
    return store;
}

std::string DrawingFiles::loadError(const std::string& text) const {
    host::DxfError error;
    const auto store = host::loadDrawing(write("bad.dxf", text), error);
    if (store != nullptr) return "loaded";
    return with(error.message(), path("bad.dxf"), "bad.dxf");
}

std::string DrawingFiles::saved(host::Store& store) const {
    host::DxfError error;
    EXPECT_TRUE(host::saveDrawing(store, path("saved.dxf"), error)) << error.message();
    return read("saved.dxf");
}

std::string DrawingFiles::findings(const std::string& text) const {
    host::DxfError error;
    const auto found = host::checkFile(write("check.dxf", text), error);
    if (!found) return error.message();
    std::string lines;
    for (const host::Finding& finding : *found) {
        lines += (finding.severity == host::Severity::Note ? "note: " : "") + finding.text + "\n";
    }
    return lines;
}

}  // namespace tests
