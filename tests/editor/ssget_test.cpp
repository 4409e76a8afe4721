// acedSSGet: modes, order and filters.
#include "editor/editor_fixture.h"
#include "host/control/switches.h"
#include "host/editor/selection/select_objects.h"
#include "host/editor/selection/selection_sources.h"

namespace tests {
namespace {

class SelectionModes : public EditorTest {
  protected:
    SelectionModes() {
        addRecord("LAYER", "0 LAYER|2 off|70 0|62 -7");
        addRecord("LAYER", "0 LAYER|2 frozen|70 1|62 7");
        add("0 LINE|10 0|20 0|11 10|21 0|62 1");                     // a
        add("0 CIRCLE|8 off|10 5|20 5|40 1");                        // b
        add("0 LINE|8 frozen|10 0|20 2|11 10|21 2");                 // c
        add("0 LINE|67 1|10 0|20 0|11 1|21 0", store.paperSpace());  // d
        add("0 POINT|10 50|20 50|60 1");                             // e, invisible
        add("0 LINE|8 0|10 0|20 4|11 10|21 4|6 DASHED");             // f
    }

    /// "X" with a filter of one group.
    std::string filtered(int code, const wchar_t* text) {
        resbuf* filter = acutBuildList(code, text, RTNONE);
        const std::string found = get(L"X", filter);
        acutRelRb(filter);
        return found;
    }
};

const std::string kError = std::to_string(RTERROR);
const std::string kRejected = std::to_string(RTREJ);

TEST_F(SelectionModes, ReachWhatTheyNameNewestFirst) {
    EXPECT_EQ(get(L"X"), "fecbad");
    EXPECT_EQ(get(L"_x"), "fecbad");
    EXPECT_EQ(get(L"A"), "feba") << "not on frozen layers";
    EXPECT_EQ(get(L"L"), "f");
    EXPECT_EQ(get(L"P"), kError);
    erase(entities[5]);
    EXPECT_EQ(get(L"L"), "a") << "e is invisible, b and c are on layers that are not drawn";
    host::switches().newestFirst = false;
    EXPECT_EQ(get(L"X"), "dabce");
}

TEST_F(SelectionModes, FollowTheCurrentSpace) {
    set(L"TILEMODE", L"0");
    EXPECT_EQ(get(L"A"), "d");
    EXPECT_EQ(get(L"X"), "dfecba");
    EXPECT_EQ(get(L"L"), "d");
}

TEST_F(SelectionModes, ThePaperOfALayoutIsNeitherSelectedNorErased) {
    const char* const tags = "0 VIEWPORT|67 1|10 0|20 0|40 100|41 100|69 ";
    const AcDbObjectId paper = add(tags + std::string("1"), store.paperSpace());  // g
    add(tags + std::string("2"), store.paperSpace());                             // h
    set(L"TILEMODE", L"0");
    EXPECT_EQ(get(L"A"), "hd");
    EXPECT_EQ(get(L"L"), "h");
    const ads_point low = {-99, -99, 0}, high = {99, 99, 0}, corner = {0, 50, 0};
    EXPECT_EQ(get(L"C", nullptr, low, high), "hd");
    EXPECT_EQ(get(nullptr, nullptr, corner), kError);
    std::wstring explanation;
    EXPECT_TRUE(host::selectHandle(store, handleOf(paper), explanation).isNull());
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenObject(object, paper, AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eCannotBeErasedByCaller);
    object->close();
}

TEST_F(SelectionModes, WindowCrossingAndPick) {
    const ads_point low = {-1, -1, 0}, high = {11, 3, 0}, middle = {5, 5, 0}, on = {3, 4, 0};
    EXPECT_EQ(get(L"W", nullptr, low, high), "a");
    EXPECT_EQ(get(L"C", nullptr, middle, low), "fa");
    EXPECT_EQ(get(nullptr, nullptr, on), "f");
    const ads_point nowhere = {300, 300, 0};
    EXPECT_EQ(get(nullptr, nullptr, nowhere), kError);
}

TEST_F(SelectionModes, RejectWhatIsNotServed) {
    const ads_point point = {0, 0, 0};
    EXPECT_EQ(get(L"W", nullptr, point), kRejected);
    EXPECT_EQ(get(L"X", nullptr, point, point), kRejected);
    EXPECT_EQ(get(L"F"), kRejected);
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, nullptr), RTREJ);
    EXPECT_EQ(filtered(-4, L"<OR"), kRejected);
    host::setCurrentDocumentState(nullptr);
    EXPECT_EQ(get(L"X"), kError);
}

TEST_F(SelectionModes, FilterByNamesWithoutRegardToCase) {
    EXPECT_EQ(filtered(RTDXF0, L"line"), "fcad");
    EXPECT_EQ(filtered(RTDXF0, L"~LINE"), "eb");
    EXPECT_EQ(filtered(8, L"OFF,Froz*"), "cb");
    EXPECT_EQ(filtered(6, L"dashed"), "f");
    EXPECT_EQ(filtered(6, L"ByLayer"), "ecbad");
    EXPECT_EQ(filtered(410, L"model"), "fecba");
    EXPECT_EQ(filtered(410, L"~Model"), "d");
    EXPECT_EQ(filtered(1, L"*"), kError) << "no entity has the group";
    EXPECT_EQ(filtered(5, handleOf(entities[1]).c_str()), "b");
}

TEST_F(SelectionModes, FilterByNumbersAndAllItems) {
    resbuf* filter = acutBuildList(RTDXF0, L"LINE", 62, 256, 67, 0, RTNONE);
    EXPECT_EQ(get(L"X", filter), "fc");
    EXPECT_EQ(get(L"A", filter), "f");
    acutRelRb(filter);
    filter = acutBuildList(40, 1.0, RTNONE);
    EXPECT_EQ(get(L"X", filter), "b");
    acutRelRb(filter);
}

TEST_F(SelectionModes, TypedCallsSelectInTheCurrentSpace) {
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"(ssget \"X\")", "fecba"},
        {L"(SSGET \"_x\" '((0 . \"LINE\") (8 . \"fro*\")))", "c"},
        {L"(ssget \"X\" '((62 . 1)))", "a"},
        {L"(ssget \"X\" (quote ((40 . 1))))", "b"},
        {L"(ssget \"X\" ((40 . 1)))", "wrong"},
        {L"(ssget \"X\" '((-4 . \"<OR\") (0 . \"POINT\") (8 . \"off\") (-4 . \"OR>\")))", "eb"},
        {L"(ssget \"X\" '((-4 . \"<NOT\") (0 . \"LINE\") (-4 . \"NOT>\") (60 . 0)))", "b"},
        {L"(ssget \"X\" '((-4 . \"<xor\") (0 . \"LINE\") (8 . \"0\") (-4 . \"xor>\")))", "ec"},
        {L"(ssget \"X\" '((-4 . \"<AND\") (0 . \"LINE\") (-4 . \"OR>\")))", "wrong"},
        {L"(ssget \"X\" '((-4 . \"<OR\") (0 . \"LINE\")))", "wrong"},
        {L"(ssget \"X\" '((-4 . \"<NOT\") (-4 . \"NOT>\")))", "wrong"},
        {L"(ssget \"X\" '((62 . \"1\")))", "wrong"},
        {L"(ssget \"X\" '((62 . 99999)))", "wrong"},
        {L"(ssget \"X\" '((8 \"0\")))", "wrong"},
        {L"(ssget \"X\" '((8 . \"0\"))", "wrong"},
        {L"(ssget \"X\" '((10 . 1)))", "wrong"},
        {L"(ssget \"X\" \"Y\")", "wrong"},
        {L"(ssget \"P\")", "wrong"},
        {L"(ssget", "wrong"},
        {L"LINE", "wrong"},
    };
    for (const auto& [call, found] : cases) {
        std::vector<AcDbObjectId> selection;
        std::wstring why;
        const bool read = host::parseSelection({call}, selection, why);
        EXPECT_EQ(read ? letters(selection) : "wrong", found) << host::toUtf8(call);
        EXPECT_EQ(read, why.empty());
    }
    std::wstring deep = L"(ssget \"X\" '(";
    for (int i = 0; i < 100000; ++i)
        deep += L"(-4 . \"<OR\")";
    std::vector<AcDbObjectId> selection;
    EXPECT_FALSE(host::parseSelection({deep + L"))"}, selection, deep));
}

}  // namespace
}  // namespace tests
