// COPY, MIRROR, the clipboard and switching between drawings, as whole states.
#include "commands/commands_fixture.h"
#include "common/tag_literals.h"
#include "host/content/dictionary_text.h"
#include "host/tags/tag_values.h"

namespace tests {
namespace {

using namespace host;

class EditingTest : public CommandsTest {
  protected:
    EditingTest() {
        session->newDrawing();
        switches().newestFirst = false;
        run(L"LINE 0,0 10,0\n\nCIRCLE 5,5 1\n");
    }
    /// Gives an entity an extension dictionary with one record.
    void addRecord(ObjectBody& entity, bool hard) {
        ObjectBody& dictionary = addExtensionDictionary(entity, hard);
        const char* const record = "0 XRECORD|100 AcDbXrecord|280 1";
        addEntry(dictionary, L"KEY", appendObject(store(), record, dictionary.self).handle);
    }
    /// Number of live records of applications.
    int records() const {
        int count = 0;
        for (Index at = 1; at <= store().count(); ++at)
            count += store().at(at).kind == Kind::Xrecord && !store().at(at).erased &&
                     store().at(store().at(at).owner).owner > store().modelSpace();
        return count;
    }
};

TEST_F(EditingTest, LinesTakePolarPointsAndSegmentsBack) {
    run(L"LINE 1,1 @2<90 8,8 U @ u @3,0 C\nLINE @ 5<180 U\n@1,0\n\n");
    EXPECT_EQ(entities(), "LINE CIRCLE LINE LINE LINE LINE");
    EXPECT_EQ(values(entity("LINE", 2), {10, 20, 11, 21}), "1.0 3.0 4.0 3.0");
    EXPECT_EQ(values(entity("LINE", 3), {10, 20, 11, 21}), "4.0 3.0 1.0 1.0");
    run(L"U\nU\n");
    EXPECT_EQ(entities(), "LINE CIRCLE");
}

TEST_F(EditingTest, ZoomSetsHowFarAPickReaches) {
    run(L"ZOOM E\nLINE 100,0 110,20\n\nPICK 110.05,20\nERASE\n");
    EXPECT_EQ(entities(), "LINE CIRCLE LINE") << "0.02 units, of a view 6 units high";
    for (const auto& [zoom, height] : {std::pair(L"a", L"VIEWSIZE = 73."),
                                       {L"0.5x", L"VIEWSIZE = 146."},
                                       {L"W 0,0 @1,2", L"VIEWSIZE = 2.0"},
                                       {L"0,0 0,8", L"VIEWSIZE = 8.0"}}) {
        run(std::wstring(L"Z ") + zoom + L"\nVIEWSIZE\n");
        EXPECT_TRUE(holds(shown(), toUtf8(height))) << toUtf8(zoom);
    }
    EXPECT_EQ(run(L"ZOOM -1x\n"), CommandStatus::Cancelled);
    EXPECT_EQ(run(L"ZOOM 1e-320\n"), CommandStatus::Done) << "stays as it is";
}

TEST_F(EditingTest, CopiesStandInDrawingOrderOrBySwitchInTheOrderOfSelection) {
    const std::wstring selected = L"5,6 0,0\n\n";  // the circle first
    run(L"COPY " + selected + L"D 9,9\n");
    EXPECT_EQ(entities(), "LINE CIRCLE LINE CIRCLE");
    switches().copiesInDrawingOrder = false;
    run(L"COPYCLIP " + selected + L"NEW\nPASTECLIP 0,0\n");
    EXPECT_EQ(entities(), "CIRCLE LINE");
}

/// A text that a leader points at comes along behind all that is selected.
TEST_F(EditingTest, TheClipboardHoldsWhatIsSelectedFirst) {
    run(L"TEXT 0,50 1 0 note\nPOINT 7,7\nPOINT 8,8\n");
    ObjectBody& point = entity("POINT");
    point.setTags(std::string(point.tags()) + "340\n" + formatHandle(entity("TEXT").handle) + "\n");
    run(L"COPYCLIP 7,7 8,8\n\nNEW\nPASTECLIP 0,0\n");
    EXPECT_EQ(entities(), "POINT POINT TEXT");
}

/// Cancelled at whatever prompt, a command leaves the drawing as it was; COPY leaves its copies.
TEST_F(EditingTest, CancellingLeavesTheDrawingUntouched) {
    run(L"COPYCLIP ALL\n\n");
    const std::vector<std::vector<std::wstring>> commands = {
        {L"MOVE ", L"ALL\n\n", L"1,1 "},
        {L"COPY ", L"ALL\n\n", L"1,1 "},
        {L"MIRROR ", L"ALL\n\n", L"0,0 ", L"0,1 "},
        {L"COPYCLIP ", L"ALL\n"},
        {L"CUTCLIP ", L"ALL\n"},
        {L"PASTECLIP "}};
    const std::string before = stateOf(store());
    for (const auto& answers : commands) {
        std::wstring script;
        for (const std::wstring& answer : answers) {
            script += answer;
            EXPECT_EQ(run(script), CommandStatus::Cancelled) << answers[0].c_str();
            EXPECT_EQ(stateOf(store()), before);
        }
    }
    EXPECT_EQ(run(L"COPY L\n\n0,0 5,5 "), CommandStatus::Cancelled);
    EXPECT_EQ(entities(), "LINE CIRCLE CIRCLE");
}

TEST_F(EditingTest, LockedLayersAreCopiedButNotChanged) {
    tests::setTag(*store().symbol("LAYER", L"0"), 70, "4");
    const std::string before = stateOf(store());
    run(L"MOVE ALL\n\n0,0 1,1\nMIRROR ALL\n\n0,0 1,1 Y\nCUTCLIP ALL\n\nERASE ALL\n\n");
    EXPECT_EQ(stateOf(store()), before);
    run(L"COPY ALL\n\n0,0 1,1\n\n");
    EXPECT_EQ(entities(), "LINE CIRCLE LINE CIRCLE");
}

TEST_F(EditingTest, ClipboardGoesBetweenDrawingsWithWhatBelongsToIt) {
    addRecord(entity("LINE"), true);
    addRecord(entity("CIRCLE"), false);
    run(L"COPYCLIP ALL\n\nNEW\nPASTECLIP 100,100\n");
    EXPECT_EQ(entities(), "LINE CIRCLE");
    EXPECT_EQ(records(), 1) << "a soft dictionary's record stays behind";
    // The lower left corner of both comes to the insertion point.
    EXPECT_EQ(values(entity("LINE"), {10, 20, 11}), "100.0 100.0 110.0");
    run(L"PASTECLIP 0,0\nSWITCH 1\n");
    EXPECT_EQ(entities(), "LINE CIRCLE");
    EXPECT_EQ(run(L"CUTCLIP L\n\nSWITCH Drawing2.dxf\nPASTECLIP 0,0\n"), CommandStatus::Done);
    EXPECT_EQ(entities(), "LINE CIRCLE LINE CIRCLE CIRCLE");
    EXPECT_EQ(values(entity("CIRCLE", 2), {10, 20}), "1.0 1.0");
    EXPECT_EQ(run(L"SWITCH Drawing3.dxf\n"), CommandStatus::Failed);
}

/// Every kind of entity goes through the clipboard into an empty drawing with what it names.
TEST_F(EditingTest, DefinitionsComeAlongAndThoseOfTheTargetWin) {
    session->openDrawing(TESTS_FOLDER "/commands/every_type.dxf");
    const std::string all = entities();
    run(L"COPYCLIP ALL\n\nSWITCH 1\n");
    const Index circle = entity("CIRCLE").self;
    run(L"PASTECLIP 0,0\n");
    EXPECT_EQ(entities(), "LINE CIRCLE " + all);
    EXPECT_EQ(errorsIn(store()), "");
    ObjectBody* block = store().symbol("BLOCK_RECORD", L"B");
    ASSERT_NE(block, nullptr);
    const Index first = store().firstLive(block->self);
    store().setErased(store().at(first), true);
    const std::string dimension = values(entity("DIMENSION"), {2});
    run(L"PASTECLIP 0,0\n");
    EXPECT_EQ(store().symbol("BLOCK_RECORD", L"b"), block);
    EXPECT_TRUE(store().at(first).erased);
    EXPECT_NE(values(entity("DIMENSION", 6), {2}), dimension) << "anonymous blocks are not shared";
    EXPECT_FALSE(store().at(circle).erased);
}

TEST_F(EditingTest, AnEmptyClipboardIsToldAndEachSessionStartsWithOne) {
    EXPECT_EQ(run(L"PASTECLIP\n"), CommandStatus::Failed);
    EXPECT_TRUE(holds(shown(), "The clipboard is empty"));
}

}  // namespace
}  // namespace tests
