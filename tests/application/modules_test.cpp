// Loading and unloading applications: messages, locks, refusals and what is left behind.
#include "session_fixture.h"

#include "host/editor/run/command_runner.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/state/notify.h"

namespace {

/// As the system itself writes it.
const std::string kProbe = std::filesystem::path(PROBE_FILE).make_preferred().string();

class ModulesTest : public SessionTest {
  protected:
    void loadWith(const char* misbehaviour) {
        setVariable("PROBE", misbehaviour);
        loaded = session->modules.load(kProbe);
    }
    Outcome loaded;
};

TEST_F(ModulesTest, LoadingMakesEachDrawingCurrentInTurn) {
    session->newDrawing();
    session->newDrawing();
    session->activate(*session->documents.at(0));
    ASSERT_TRUE(session->modules.load(kProbe));
    EXPECT_EQ(shown(), "<1 Drawing1.dxf><3 Drawing1.dxf><3 Drawing2.dxf>");
    EXPECT_EQ(acDocManager->curDocument(), session->documents.at(0));
    session->newDrawing();
    EXPECT_EQ(shown(), "<9 Drawing1.dxf><3 Drawing3.dxf>");
    session->closeDrawing();
    EXPECT_EQ(shown(), "<4 Drawing3.dxf>");
    session->activate(*session->documents.at(0));
    ASSERT_TRUE(session->modules.unload("PROBE.arx"));
    EXPECT_EQ(shown(), "<4 Drawing1.dxf><4 Drawing2.dxf><2 Drawing1.dxf><gone>");
    EXPECT_EQ(acDocManager->curDocument(), session->documents.at(0));
    EXPECT_TRUE(session->modules.all().empty());
}

TEST_F(ModulesTest, LazilyEachDrawingGetsItsMessageWhenItIsNextCurrent) {
    switches().loadMessageAtOnce = false;
    session->newDrawing();
    session->newDrawing();
    session->modules.load(kProbe);
    EXPECT_EQ(shown(), "<1 Drawing2.dxf><3 Drawing2.dxf>");
    session->modules.unload("probe.arx");
    EXPECT_EQ(shown(), "<4 Drawing2.dxf><2 Drawing2.dxf><gone>");
    session->modules.load(kProbe);
    session->activate(*session->documents.at(0));
    session->activate(*session->documents.at(1));
    EXPECT_EQ(shown(), "<1 Drawing2.dxf><3 Drawing2.dxf><3 Drawing1.dxf>");
}

TEST_F(ModulesTest, ALockedApplicationStaysUntilTheHostQuits) {
    session->newDrawing();
    session->newDrawing();
    loadWith("locked");
    EXPECT_EQ(session->modules.unload("probe.arx").error,
              "probe.arx is locked and cannot be unloaded while the host runs");
    EXPECT_EQ(session->modules.all().size(), 1u);
    shown();
    session.reset();
    EXPECT_EQ(shown(), "<13 Drawing2.dxf><4 Drawing1.dxf><4 Drawing2.dxf><2 -><gone>");
}

TEST_F(ModulesTest, AnApplicationForOneDrawingOnly) {
    session->newDrawing();
    loadWith("single");
    ASSERT_TRUE(loaded);
    EXPECT_EQ(session->newDrawing().error,
              "probe.arx does not work with several drawings: close the open drawing or unload "
              "probe.arx");
    session->modules.unload("probe.arx");
    session->newDrawing();
    loadWith("single");
    EXPECT_EQ(loaded.error, kProbe +
                                ": not loaded: it is not registered for "
                                "several documents; close all but one");
    EXPECT_TRUE(session->modules.all().empty());
}

TEST_F(ModulesTest, AnApplicationThatAnswersWithAnErrorIsUnloaded) {
    session->newDrawing();
    loadWith("refuse");
    EXPECT_EQ(loaded.error,
              kProbe + ": not loaded: the application answered kRetError to kLoadDwgMsg");
    EXPECT_EQ(shown(), "<1 Drawing1.dxf><3 Drawing1.dxf><4 Drawing1.dxf><2 Drawing1.dxf><gone>");
}

TEST_F(ModulesTest, FilesThatAreNoApplication) {
    session->newDrawing();
    const std::string text = file("text.arx");
    write(text, "not a library");
    EXPECT_EQ(session->modules.load(file("none.arx")).error, file("none.arx") + ": no such file");
    EXPECT_EQ(session->modules.load(file("")).error,
              file("") + ": a directory, not an application");
    EXPECT_EQ(session->modules.load(text).error.rfind(text + ": cannot be loaded: ", 0), 0u);
    EXPECT_EQ(session->modules.load(HOST_FILE).error,
              HOST_FILE ": not an ObjectARX application: it does not export acrxEntryPoint");
    EXPECT_EQ(session->modules.load(OLD_PROBE_FILE).error, OLD_PROBE_FILE
              ": built for interface version 18.2, this host has version 19; rebuild it");
    ASSERT_TRUE(session->modules.load(kProbe));
    EXPECT_EQ(session->modules.load(kProbe).error,
              kProbe + ": probe.arx is loaded already; unload it first");
    EXPECT_EQ(session->modules.unload("other.arx").error,
              "other.arx: no such application is loaded; ARX ? lists the loaded ones");
    EXPECT_EQ(session->modules.load(file("none.arx")).status, 1);
}

TEST_F(ModulesTest, WhatIsLeftRegisteredIsAFaultAndDoesNoHarm) {
    const std::string after = "after kUnloadAppMsg to probe.arx: ", still = " is still registered";
    const std::string function = after + "LISP function ",
                      defined = " is still defined in Drawing1.dxf";
    const std::pair<const char*, Texts> cases[] = {
        {"keep-commands",
         {after + "command PROBELEAK" + still, after + "command PROBETHROW" + still}},
        {"keep-documents", {after + "a document reactor is still attached"}},
        {"keep-editor", {after + "an editor reactor is still attached"}},
        {"keep-lisp",
         {function + "PROBEFAILS" + defined, function + "PROBELEAKS" + defined,
          function + "PROBEMESSAGE" + defined, function + "PROBETYPES" + defined}},
        {"early-lisp",
         {"acedDefun: called during kInitAppMsg by probe.arx, when no LISP may be assumed"}}};
    for (const auto& [misbehaviour, expected] : cases) {
        session.reset();
        session = std::make_unique<Session>();
        session->newDrawing();
        loadWith(misbehaviour);
        session->modules.unload("probe.arx");
        EXPECT_EQ(takeFaults(), expected);
        EXPECT_TRUE(registeredCommands().empty());
        session->newDrawing();
        EXPECT_EQ(session->runScript(L"REGEN\n"), CommandStatus::Done);
    }
}

TEST_F(ModulesTest, LeaksAndExceptionsOfCommandsAreReported) {
    session->newDrawing();
    session->modules.load(kProbe);
    EXPECT_EQ(session->runScript(L"PROBETHROW\n"), CommandStatus::Failed);
    EXPECT_EQ(takeFaults(), Texts{"command PROBETHROW: an exception left the module"});
    session->runScript(L"PROBELEAK\n");
    EXPECT_EQ(takeFaults(),
              Texts{"after command PROBELEAK: 1 object(s) left open (TABLE 1 open for read)"});
    session.reset();
    EXPECT_EQ(takeFaults(), Texts{"closing the drawing: TABLE 1 open for read; close it before"});
}

TEST_F(ModulesTest, ArxCommand) {
    session->newDrawing();
    EXPECT_EQ(session->runScript(L"ARX L \"" + fromUtf8(kProbe) + L"\"\n"), CommandStatus::Done);
    shown();
    session->runScript(L"ARX ?\n");
    EXPECT_TRUE(holds(shown(), "\n" + kProbe + "\n"));
    EXPECT_EQ(problemsOf(L"ARX X\nARX UNLOAD nothing.arx\n"),
              "plan.scr:1: ARX failed: X is no option: ? lists, L loads, U unloads\n"
              "plan.scr:2: ARX failed: nothing.arx: no such application is loaded; ARX ? lists the "
              "loaded ones\n");
    EXPECT_EQ(session->runScript(L"ARX u probe.arx\n"), CommandStatus::Done);
    EXPECT_TRUE(session->modules.all().empty());
}

}  // namespace
