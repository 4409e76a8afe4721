// Documents: which is current, what reactors hear, and addresses that are used again.
#include "session_fixture.h"

#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/document_state.h"

namespace {

using DocumentsTest = SessionTest;

TEST_F(DocumentsTest, EventsComeInOrder) {
    session->newDrawing();
    session->newDrawing();
    session->activate(*session->documents.at(0));
    session->closeDrawing();
    const std::vector<std::wstring> expected = {
        L"documentCreated Drawing1.dxf",       L"documentBecameCurrent Drawing1.dxf",
        L"documentCreated Drawing2.dxf",       L"documentBecameCurrent Drawing2.dxf",
        L"documentBecameCurrent Drawing1.dxf", L"documentToBeDestroyed Drawing1.dxf",
        L"documentBecameCurrent Drawing2.dxf"};
    EXPECT_EQ(effectTexts(EffectKind::Notification), expected);
}

TEST_F(DocumentsTest, ACommandEndsInTheDrawingInWhichItStarted) {
    session->newDrawing();
    session->runScript(L"LINE 0,0 1,1\n\nSAVEAS " + quoted("a.dxf") + L"\n");
    const std::wstring scripts[] = {L"NEW\n", L"CLOSE\n", L"CLOSE\n",
                                    L"OPEN " + quoted("a.dxf") + L"\n"};
    const char* const expected[] = {"start end current ", "start end closes current ",
                                    "start end closes ", "current "};
    for (std::size_t i = 0; i < std::size(scripts); ++i) {
        clearEffects();
        session->runScript(scripts[i]);
        std::string heard;
        for (const std::wstring& text : effectTexts(EffectKind::Notification)) {
            if (text.find(L"commandWillStart") == 0) heard += "start ";
            if (text.find(L"commandEnded") == 0) heard += "end ";
            if (text.find(L"documentToBeDestroyed") == 0) heard += "closes ";
            if (text.find(L"documentBecameCurrent") == 0) heard += "current ";
        }
        EXPECT_EQ(heard, expected[i]) << i;
    }
}

TEST_F(DocumentsTest, SwitchingIsAGestureThatLeavesWhatIsPicked) {
    session->newDrawing();
    session->runScript(L"NEW\nSWITCH 1\nLINE 0,0 1,1\n\nPICK ALL\nSWITCH 2\n");
    clearEffects();
    EXPECT_EQ(session->runScript(L"SWITCH Drawing1.dxf\n"), CommandStatus::Done);
    EXPECT_EQ(effectTexts(EffectKind::Notification),
              std::vector<std::wstring>{L"documentBecameCurrent Drawing1.dxf"});
    EXPECT_EQ(pickfirst().size(), 1u);
    EXPECT_EQ(session->runScript(L"SWITCH 3\n"), CommandStatus::Failed);
}

TEST_F(DocumentsTest, CurrentDocumentStateAndWorkingDatabaseGoTogether) {
    session->newDrawing();
    session->newDrawing();
    for (const std::size_t index : {0, 1}) {
        session->activate(*session->documents.at(index));
        const AcDbDatabase* database = session->documents.at(index)->database();
        EXPECT_EQ(acDocManager->curDocument(), session->documents.at(index));
        EXPECT_EQ(currentDocumentState()->database, database);
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), database);
    }
    const AcApDocument* closed = session->documents.at(1);
    session->closeDrawing();
    session->newDrawing();
    EXPECT_EQ(session->documents.at(1), closed) << "its address is the next one's";
    EXPECT_EQ(toUtf8(session->documents.at(1)->fileName()), "Drawing3.dxf");
    session->closeDrawing();
    session->closeDrawing();
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(currentDocumentState(), nullptr);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(DocumentsTest, WhatCannotBeDoneIsSaidInOneLine) {
    EXPECT_EQ(session->closeDrawing().error, "no drawing is open");
    EXPECT_EQ(session->saveDrawing({}).error, "no drawing is open");
    session->newDrawing();
    EXPECT_EQ(session->saveDrawing({}).error, "the drawing has no name yet: save it with SAVEAS");
    ASSERT_TRUE(session->saveDrawing(file("a.dxf")));
    EXPECT_EQ(session->openDrawing(file("a.dxf")).error, file("a.dxf") + ": open already");
    session->newDrawing();
    EXPECT_EQ(session->saveDrawing(file("a.dxf")).error,
              file("a.dxf") + ": open as another drawing; choose another name or close that one");
}

TEST_F(DocumentsTest, AnAttachedReactorThatIsDeletedIsAFault) {
    acDocManager->addReactor(std::make_unique<AcApDocManagerReactor>().get());
    session->newDrawing();
    EXPECT_EQ(takeFaults(), Texts{"a document reactor was deleted while it was attached"});
}

}  // namespace
