// Assertion checks and their reports.
#include "diagnostics.h"
#include "host/control/windows_control.h"
#include "library.h"
#include "support_fixture.h"

namespace {

using host::EffectKind;
using Lines = std::vector<std::wstring>;

constexpr wchar_t DIAG_SOURCE[] = L"GroupCommands";

bool counted(int& calls, bool result) {
    ++calls;
    return result;
}

/// A failing check, and the line it stands in.
int failCheck() {
    DIAG_ASSERT(1 == 2, L"acdbGetObjectId(objIdGB, ent) == Acad::eOk");
    return __LINE__ - 1;
}

std::wstring expectedReport(int line) {
    return L"GroupCommands(" + std::to_wstring(line) +
           L"): Assertion in \"VelmoGroup\" (acdbGetObjectId(objIdGB, ent) == Acad::eOk).";
}

TEST_F(Support, WithoutSwitchesAFailedCheckIsSilent) {
    host::setDebuggerPresent(true);
    start(0, 0);
    int calls = 0;
    DIAG_ASSERT(counted(calls, false), L"counted(calls, false)");
    EXPECT_EQ(calls, 1) << "the condition is the call itself";
    diagnosticsOutput(L"text");
    shutDownLibrary();
    EXPECT_TRUE(host::effects().empty());
    EXPECT_EQ(host::breakpointsHit(), 0);
    EXPECT_FALSE(exists(logFolder()));
}

TEST_F(Support, AssertStartupShowsTheBoxAndNothingElse) {
    start(1, 1);
    host::clearEffects();
    int calls = 0;
    DIAG_ASSERT(counted(calls, true), L"counted(calls, true)");
    EXPECT_TRUE(host::effects().empty());
    const int line = failCheck();
    EXPECT_EQ(onlyBox(),
              L"Assertion Failure: VelmoGroup\n16\n"
              L"Module : <VelmoGroup>\n"
              L"Assertion : <acdbGetObjectId(objIdGB, ent) == Acad::eOk>\n"
              L"File : <GroupCommands>\n"
              L"Line : " +
                  std::to_wstring(line));
    EXPECT_EQ(host::effects().size(), 1u);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(exists(logFolder()));
}

TEST_F(Support, TheBoxEndsWithTheCallStack) {
    start(0, 1);
    failCheck();
    const std::wstring box = host::effectText(EffectKind::MessageBox);
    const Lines frames = linesOf(box.substr(box.find(L"\n\n") + 2));
    ASSERT_GT(frames.size(), 3u);
    EXPECT_NE(frames[0].find(L"support_tests + 0x"), std::wstring::npos) << "the caller's module";
}

TEST_F(Support, DebugStartupReportsEverywhere) {
    host::setDebuggerPresent(true);
    start(1, 0);
    const int line = failCheck();
    const std::wstring report = L"[16:19:18] " + expectedReport(line);
    const Lines output = linesOf(host::effectText(EffectKind::StandardOutput));
    ASSERT_GT(output.size(), 2u);
    EXPECT_EQ(output[0], report);
    EXPECT_EQ(output[1].substr(0, 11), L"[16:19:18] ") << "the call stack";
    EXPECT_EQ(linesOf(host::effectText(EffectKind::DebugOutput)), output);
    EXPECT_EQ(loggedLines(), output);
    EXPECT_EQ(host::breakpointsHit(), 1);
    EXPECT_EQ(host::effects()[0].kind, EffectKind::MessageBox) << "the box comes first";
}

TEST_F(Support, DebuggerOnlyWhenPresent) {
    start(1, 0);
    failCheck();
    EXPECT_TRUE(host::effectTexts(EffectKind::DebugOutput).empty());
    EXPECT_EQ(host::breakpointsHit(), 0);
    EXPECT_FALSE(host::effectTexts(EffectKind::StandardOutput).empty());
}

TEST_F(Support, ModuleNameComesFromTheHandle) {
    for (const auto& [file, name] : {std::pair(L"/opt/a.b/Name.With.Dots.arx", L"Name.With.Dots"),
                                     std::pair(L"Bare", L"Bare")}) {
        host::setModuleFileName(module(), file);
        host::clearEffects();
        G_diagnostics = {};
        start(0, 1);
        failCheck();
        EXPECT_EQ(linesOf(onlyBox())[0], std::wstring(L"Assertion Failure: ") + name);
    }
}

TEST_F(Support, LongModulePathIsNotCut) {
    host::setModuleFileName(module(), L"/" + std::wstring(3000, L'x') + L"/Long.arx");
    start(0, 1);
    failCheck();
    EXPECT_EQ(linesOf(onlyBox())[0], L"Assertion Failure: Long");
}

}  // namespace
