// Load, unload, messages, menus and the AutoLISP function of the module.
#include <algorithm>

#include "common/drafting.h"
#include "gtest/gtest.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/control/switches.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/state/notify.h"
#include "host/text/wildcard.h"

namespace {

using host::EffectKind;
using host::effectText;
using host::effectTexts;
using tests::Drafting;
using tests::kModule;
using Texts = std::vector<std::wstring>;

TEST(Entry, RegistersItsCommandsInOrderWithTheirFlags) {
    Drafting drafting;
    std::wstring seen;
    for (const host::RegisteredCommand& command : host::registeredCommands()) {
        EXPECT_EQ(command.globalName, command.localName);
        seen += command.group + L"/" + command.globalName + L" " + std::to_wstring(command.flags) +
                L"\n";
    }
    EXPECT_EQ(seen,
              L"VelmoGROUP/VelmoGROUPMAKE 6\nVelmoGROUP/VelmoGROUPDELETE 2\n"
              L"VelmoGROUP/VelmoGROUPREMOVEMEMBER 0\nVelmoGROUP/VelmoGROUPACTIVE 0\n"
              L"VelmoGROUP/VelmoGROUPNOTACTIVE 0\n");
    EXPECT_EQ(host::editorReactors().count(), 1);
}

TEST(Entry, UnloadTakesEverythingDownAndSaysGoodbye) {
    Drafting drafting;
    host::clearEffects();
    EXPECT_TRUE(drafting.session().modules.unload(kModule));
    EXPECT_EQ(effectText(EffectKind::CommandLine),
              L"Goodbye\nRemoving command group \"VelmoGROUP\"\n");
    EXPECT_TRUE(host::registeredCommands().empty());
    EXPECT_EQ(host::editorReactors().count(), 0);
    EXPECT_TRUE(drafting.session().modules.load(MODULE_FILE));
    EXPECT_EQ(host::editorReactors().count(), 1);
}

TEST(Entry, AnswersEveryMessageAndIgnoresThoseItDoesNotKnow) {
    Drafting drafting;
    host::clearEffects();
    for (const int message : {5, 6, 9, 13, 4711}) {
        EXPECT_EQ(drafting.session().sendMessage(kModule, message), 0);
    }
    EXPECT_EQ(effectText(EffectKind::CommandLine), L"");
}

TEST(Entry, RegistersItsFunctionOnceItIsDefined) {
    Drafting drafting;
    const auto calls = [&drafting](long failAt) {
        host::setFaultPlan({failAt, false, ""});
        drafting.session().sendMessage(kModule, 3);
        const long count = host::faultCallCount();
        host::setFaultPlan({});
        return count;
    };
    EXPECT_EQ(calls(0), 2);
    EXPECT_EQ(calls(1), 1);
    // Without the registration the function is called by a message, and gives no value.
    calls(2);
    host::clearEffects();
    drafting.session().callLisp(L"(VelmoGroupVersion)");
    EXPECT_TRUE(host::wildcardMatch(L"GroupCommands : [A-Z][a-z][a-z] [ 1-3]# #### ##:##:##\n",
                                    effectText(EffectKind::CommandLine)));
}

TEST(Entry, ADrawingLosesTheFunctionWithMessageFourOnly) {
    for (const bool atOnce : {true, false}) {
        Drafting drafting;
        host::Session& session = drafting.session();
        session.newDrawing();
        session.modules.unload(kModule);
        host::switches().loadMessageAtOnce = atOnce;
        host::clearEffects();
        session.modules.load(MODULE_FILE);
        const Texts heard = effectTexts(EffectKind::Notification);
        EXPECT_EQ(std::count(heard.begin(), heard.end(), L"kLoadDwgMsg VelmoGroup.arx"),
                  atOnce ? 2 : 1);
        session.sendMessage(kModule, 4);
        EXPECT_NE(session.callLisp(L"(VelmoGroupVersion)"), host::CommandStatus::Done);
        session.activate(*session.documents.at(0));
        EXPECT_EQ(session.callLisp(L"(VelmoGroupVersion)"), host::CommandStatus::Done);
    }
}

TEST(Entry, EachDrawingMetGreysTheMenuItemAnew) {
    Drafting drafting("", L"Morvanta");
    const Texts greyed{L"GMorvanta.ID_GRP_ON=~"};
    EXPECT_EQ(effectTexts(EffectKind::MenuCommand), greyed);
    drafting.run(L"LINE 1,1 2,2\n\nVelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(effectTexts(EffectKind::MenuCommand), greyed);
    drafting.run(L"VelmoGROUPMAKE ALL\n\n");
    EXPECT_EQ(effectTexts(EffectKind::MenuCommand), Texts{});
    // Closing forgets the record: a new drawing, even at the same address, starts afresh.
    for (const bool unloadedFirst : {true, false}) {
        host::switches().unloadMessageFirst = unloadedFirst;
        host::clearEffects();
        drafting.session().closeDrawing();
        const Texts heard = effectTexts(EffectKind::Notification);
        EXPECT_EQ(heard.size(), 2u);
        EXPECT_EQ(heard[unloadedFirst ? 0 : 1], L"kUnloadDwgMsg VelmoGroup.arx");
        drafting.session().newDrawing();
        drafting.run(L"LINE 1,1 2,2\n\nVelmoGROUPMAKE ALL\n\n");
        EXPECT_EQ(effectTexts(EffectKind::MenuCommand), greyed);
    }
}

}  // namespace
