// Saving through commands: names, notifications, and the safety of the former file.
#include "session_fixture.h"

#include "host/objectarx/editor.h"

namespace {

class SaveTest : public SessionTest {
  protected:
    SaveTest() {
        session->newDrawing();
        session->runScript(L"LINE 0,0 1,1\n\n");
    }
    std::string name() const { return toUtf8(acDocManager->curDocument()->fileName()); }
};

TEST_F(SaveTest, SaveKeepsTheNameAndSaveasTakesTheNewOne) {
    EXPECT_EQ(
        problemsOf(L"SAVEAS " + quoted("a b.dxf") + L"\nSAVE " + quoted("copy") + L"\nQSAVE\n"),
        "");
    EXPECT_EQ(name(), file("a b.dxf"));
    EXPECT_EQ(contentOf(file("copy.dxf")), contentOf(file("a b.dxf")));
    EXPECT_EQ(problemsOf(L"SAVEAS " + quoted("c.dxf") + L"\n"), "");
    EXPECT_EQ(name(), file("c.dxf"));
}

/// Changes a header variable when a save is about to write.
class LateChange : public AcEditorReactor {
  public:
    void beginSave(AcDbDatabase* database, const ACHAR* name) override {
        heard = toUtf8(name);
        database->store().setHeaderValue("$USERI1", 70, "4711");
    }
    std::string heard;
};

TEST_F(SaveTest, NamesAreFoundAndTheFormatMayComeFirst) {
    const std::string home = std::filesystem::path(file("")).parent_path().string();
    setVariable("HOME", home.c_str());
    setVariable("USERPROFILE", home.c_str());
    EXPECT_EQ(problemsOf(L"SAVEAS dxf 16 ~/plan.v2.dxf\nSAVEAS dxf \n~/plan2\nCLOSE\n"), "");
    EXPECT_EQ(problemsOf(L"OPEN ~/plan2\nOPEN ~/plan.v2\n"), "");
    EXPECT_EQ(name(), file("plan.v2.dxf"));
    EXPECT_EQ(session->runScript(L"SAVEAS DXF 17 ~/plan3\n", true), CommandStatus::Cancelled);
}

TEST_F(SaveTest, APersonIsAskedBeforeWorkIsLost) {
    const auto leaves = [&](const std::wstring& typed) {
        Person person(typed);
        session->runInput(person);
        return session->leave(person);
    };
    const std::string former = "somebody's";
    write(file("b.dxf"), former);
    EXPECT_FALSE(leaves(L"SAVEAS " + quoted("b") + L"\nn ^D c\n"));
    EXPECT_TRUE(leaves(L"^D ^D\n")) << "nobody is there any more";
    EXPECT_FALSE(leaves(L"CLOSE x CANCEL\nNEW\nPO 3,3\nCLOSE N ^D C\n"));
    EXPECT_EQ(session->documents.count(), 1u);
    EXPECT_EQ(contentOf(file("b.dxf")), former);
    EXPECT_FALSE(leaves(L"EXPERT 2\nSAVEAS " + quoted("b") + L"\nPO 4,4 ^D c\n"));
    EXPECT_FALSE(holds(contentOf(file("b.dxf")), "\nPOINT\n"));
    EXPECT_TRUE(leaves(L"^D Y\n"));
    EXPECT_TRUE(holds(contentOf(file("b.dxf")), "\nPOINT\n"));
}

TEST_F(SaveTest, ChangesInBeginSaveAreInTheFile) {
    LateChange change;
    AcEditor* editor = AcEditor::cast(acrxSysRegistry()->at(L"AcEditor"));
    editor->addReactor(&change);
    session->runScript(L"SAVEAS " + quoted("a.dxf") + L"\n");
    editor->removeReactor(&change);
    EXPECT_EQ(change.heard, file("a.dxf"));
    EXPECT_TRUE(holds(contentOf(file("a.dxf")), "$USERI1\n 70\n4711"));
}

TEST_F(SaveTest, AFailedSaveLeavesTheFormerFileAndName) {
    session->runScript(L"SAVEAS " + quoted("a.dxf") + L"\n");
    const std::string before = contentOf(file("a.dxf"));
    const std::string problems = problemsOf(L"POINT 0,0\nSAVEAS " + quoted("none/b.dxf") +
                                            L"\nSAVEAS " + quoted("b.dwg") + L"\n");
    EXPECT_EQ(problems.rfind("plan.scr:2: SAVEAS failed: " + file("none/b.dxf") + ": ", 0), 0u);
    EXPECT_TRUE(holds(problems, "plan.scr:3: SAVEAS failed: " + file("b.dwg") +
                                    ": only DXF can be written; name the file .dxf\n"));
    EXPECT_EQ(session->exitStatus, 4);
    EXPECT_EQ(name(), file("a.dxf"));
    EXPECT_EQ(contentOf(file("a.dxf")), before);
}

TEST_F(SaveTest, OnlyTheFirstSaveOfASessionKeepsTheFormerFile) {
    session->runScript(L"SAVEAS " + quoted("a.dxf") + L"\nCLOSE\n");
    const std::string before = contentOf(file("a.dxf"));
    session = nullptr;
    session = std::make_unique<Session>();
    EXPECT_EQ(problemsOf(L"OPEN " + quoted("a.dxf") + L"\nPOINT 0,0\nQSAVE\nPOINT 1,1\nQSAVE\n"),
              "");
    EXPECT_EQ(contentOf(file("a.bak")), before);
    EXPECT_EQ(entities(), "LINE POINT POINT");
}

}  // namespace
