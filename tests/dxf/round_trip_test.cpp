// Loading and saving keep a drawing: versions, encodings, line ends, structure.
#include "common/library.h"
#include "drawing_text.h"

namespace tests {
namespace {

using RoundTrip = DrawingFiles;

TEST_F(RoundTrip, KeepsEveryGroupInEveryVersion) {
    for (const char* version : {"AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"}) {
        const std::string text = tagsOf(with(kDrawing, "AC1027", version));
        EXPECT_EQ(saved(*load(text)), text);
        const std::string withCrLf = replaced(text, "\n", "\r\n");
        EXPECT_EQ(saved(*load(withCrLf)), withCrLf);
    }
}

TEST_F(RoundTrip, AcceptsMarksCommentsPaddingAndAMissingLastLineEnd) {
    const std::string text = tagsOf(kDrawing);
    std::string loose = with(with(text, " 67\n1", "   67 \n1"), "  9\n$CL", "999\n\xFF\n9\n$CL");
    loose.pop_back();
    EXPECT_EQ(saved(*load("\xEF\xBB\xBF" + loose)), text);
}

TEST_F(RoundTrip, KeepsTextOfCodePagesAndUtf8) {
    const std::string old = with(kDrawing, "AC1027", "AC1018|9 $DWGCODEPAGE|3 ANSI_1251");
    const std::string russian = tagsOf(with(old, "1   text  ", "1 \xC4\xEE\xEC"));
    const auto store = load(russian);
    EXPECT_EQ(store->decode("\xC4\xEE\xEC"), L"\x414\x43E\x43C");
    EXPECT_EQ(saved(*store), russian);
    const std::string utf8 = tagsOf(with(kDrawing, "1   text  ", "1 \xD0\x94 \xF0\x9F\x98\x80"));
    EXPECT_EQ(saved(*load(utf8)), utf8);
}

TEST_F(RoundTrip, KeepsUnknownSectionsStrayVariablesAndLongHandles) {
    std::string text = with(kDrawing, "0 SECTION|2 CLASSES\n",
                            "9 $LATE|40 1.0\n0 ENDSEC\n0 SECTION|2 OTHER\n7 x|0 THING|5 1\n"
                            "0 ENDSEC\n0 SECTION|2 CLASSES\n");
    text = with(with(text, "5 38", "5 FEDCBA9876543210"), "5 100", "5 FEDCBA9876543211");
    text = with(with(text, "340 38", "340 FEDCBA9876543210"), "330 38", "330 0");
    EXPECT_EQ(saved(*load(tagsOf(text))), tagsOf(text));
}

TEST_F(RoundTrip, SectionsMayComeInAnyOrder) {
    const std::size_t objects = kDrawing.find("0 SECTION|2 OBJECTS");
    const std::string tail = kDrawing.substr(objects, kDrawing.find("0 EOF") - objects);
    const std::string text =
        tagsOf(with(with(kDrawing, tail, ""), "0 SECTION|2 HEADER", tail + "0 SECTION|2 HEADER"));
    EXPECT_EQ(saved(*load(text)), text);
    EXPECT_EQ(findings(text), "");
}

TEST_F(RoundTrip, MissingHandlesAndStructureAreSuppliedOnce) {
    const std::string bare = tagsOf(
        "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC\n"
        "0 SECTION|2 ENTITIES\n0 LINE|8 0|100 AcDbEntity|100 AcDbLine\n"
        "0 LINE|5 7|67 1|8 0|100 AcDbEntity|100 AcDbLine|0 ENDSEC|0 EOF");
    const auto store = load(bare);
    EXPECT_EQ(store->symbol("LAYER", L"0")->type(), "LAYER");
    EXPECT_EQ(store->at(store->firstLive(store->paperSpace())).handle, 7u);
    EXPECT_EQ(store->at(store->firstLive(store->modelSpace())).handle, 8u);
    const std::string first = saved(*store);
    EXPECT_EQ(saved(*load(first)), first);
}

/// Groups of a file by a reader of its own: no comments, no padding, no $HANDSEED value.
std::vector<std::string> tagsIn(const std::string& file) {
    std::ifstream input(file, std::ios::binary);
    std::vector<std::string> tags;
    std::string code;
    std::string value;
    while (std::getline(input, code) && std::getline(input, value)) {
        if (!value.empty() && value.back() == '\r') value.pop_back();
        const bool isSeed = !tags.empty() && tags.back() == "9 $HANDSEED";
        const int number = std::stoi(code);
        if (number != 999) tags.push_back(std::to_string(number) + (isSeed ? "" : " " + value));
        if (number == 0 && value == "EOF") break;
    }
    return tags;
}

TEST_F(RoundTrip, DrawingsOfOthersKeepEveryGroup) {
    int loaded = 0;
    for (const std::string& file : libraryDrawings()) {
        host::DxfError error;
        auto store = host::loadDrawing(file, error);
        if (store == nullptr && error.text.find("older than 2000") != std::string::npos) continue;
        ASSERT_NE(store, nullptr) << error.message();
        const std::string first = saved(*store);
        ASSERT_EQ(tagsIn(path("saved.dxf")), tagsIn(file)) << file;
        ASSERT_EQ(saved(*load(first)), first) << file;
        ++loaded;
    }
    EXPECT_GT(loaded, 1000);
}

}  // namespace
}  // namespace tests
