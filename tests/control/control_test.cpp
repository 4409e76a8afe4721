// The control side: fault plans, the ledger of held things, recorded effects, the clock.
#include <gtest/gtest.h>

#include "host/control/accounting.h"
#include "host/control/clock.h"
#include "host/control/effects.h"
#include "host/control/faults.h"

namespace {

/// Which of eight calls fail, alternately named "a" and "b".
std::string failures(const host::FaultPlan& plan) {
    host::setFaultPlan(plan);
    std::string text;
    for (int i = 0; i < 8; ++i)
        text += host::callFails(i % 2 == 0 ? "a" : "b") ? 'x' : '.';
    const std::string counts =
        " " + std::to_string(host::faultCallCount()) + " " + std::to_string(host::faultsInjected());
    host::setFaultPlan({});
    return text + counts;
}

TEST(Control, FaultPlansChooseCalls) {
    EXPECT_EQ(failures({}), "........ 8 0");
    EXPECT_EQ(failures({3, false, ""}), "..x..... 8 1");
    EXPECT_EQ(failures({3, true, ""}), "..xxxxxx 8 6");
    EXPECT_EQ(failures({2, false, "b"}), "...x.... 4 1");
    EXPECT_EQ(failures({2, true, "a"}), "..x.x.x. 4 3");
    EXPECT_EQ(failures({9, true, ""}), "........ 8 0");
    EXPECT_EQ(failures({1, true, "c"}), "........ 0 0");
}

TEST(Control, OnlySurplusIsALeak) {
    host::clearModuleFaults();
    host::countHeld(host::Held::Object);
    const host::HeldCounts before = host::heldNow();
    host::countReturned(host::Held::Object);
    host::checkNothingLeaked(before, "LINE");
    EXPECT_TRUE(host::moduleFaults().empty()) << "giving back what was held before";
    host::addHeldLister([](std::vector<std::string>& lines) { lines.push_back("LINE 2A open"); });
    for (int i = 0; i < 2; ++i)
        host::countHeld(host::Held::Object);
    host::countHeld(host::Held::SelectionSet);
    host::checkNothingLeaked(before, "COPY");
    EXPECT_EQ(
        host::moduleFaults(),
        (std::vector<std::string>{"after COPY: 1 object(s) left open (LINE 2A open)",
                                  "after COPY: 1 selection set(s) not freed (LINE 2A open)"}));
    host::clearModuleFaults();
}

TEST(Control, TheSinkGetsCommandLineTextEvenUnrecorded) {
    std::wstring printed;
    host::setCommandLineSink([&](const std::wstring& text) { printed += text; });
    host::setEffectRecording(false);
    host::recordEffect(host::EffectKind::CommandLine, L"a");
    host::setEffectRecording(true);
    host::recordEffect(host::EffectKind::Redraw, L"3 2A");
    host::recordEffect(host::EffectKind::CommandLine, L"b");
    host::setCommandLineSink(nullptr);
    host::recordEffect(host::EffectKind::CommandLine, L"c");
    EXPECT_EQ(printed, L"ab");
    EXPECT_EQ(host::effectText(host::EffectKind::CommandLine), L"bc");
    EXPECT_EQ(host::effects().size(), 3u);
    host::clearEffects();
}

TEST(Control, AFixedClockMovesBySleepingOnly) {
    host::clockFix(1000);
    host::clockSleep(600);
    EXPECT_EQ(host::clockNow(), 1000);
    host::clockSleep(600);
    EXPECT_EQ(host::clockNow(), 1001);
    EXPECT_EQ(host::clockSlept(), 1200u);
    host::clockUseMachine();
    EXPECT_GT(host::clockNow(), 1600000000);
}

}  // namespace
