// Assertion checks and their reports.
#include "call_stack.h"
#include "diagnostics.h"
#include "host/control/fake_windows.h"
#include "library.h"
#include "support_fixture.h"

namespace {

using host::EffectKind;
using host::effects;
using host::effectText;

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

/// The call stack below that many more calls.
std::wstring callStackUnder(int calls) {
    return calls == 0 ? callStackText() : callStackUnder(calls - 1) + L"";
}

TEST_F(Support, WithoutSwitchesAFailedCheckIsSilent) {
    for (const bool debugger : {false, true}) {
        host::setDebuggerPresent(debugger);
        start(0, 0);
        host::clearEffects();
        int calls = 0;
        DIAG_ASSERT(counted(calls, false), L"counted(calls, false)");
        EXPECT_EQ(calls, 1) << "the condition is the call itself";
        diagnosticsOutput(L"text");
        shutDownLibrary();
        EXPECT_TRUE(effects().empty());
        EXPECT_FALSE(std::filesystem::exists(logFolder()));
    }
}

TEST_F(Support, AssertStartupShowsTheBoxAndNothingElse) {
    start(1, 1);
    host::clearEffects();
    int calls = 0;
    DIAG_ASSERT(counted(calls, true), L"counted(calls, true)");
    EXPECT_TRUE(effects().empty());
    const int line = failCheck();
    EXPECT_EQ(onlyBox(),
              L"Assertion Failure: VelmoGroup\n16\n"
              L"Module : <VelmoGroup>\n"
              L"Assertion : <acdbGetObjectId(objIdGB, ent) == Acad::eOk>\n"
              L"File : <GroupCommands>\n"
              L"Line : " +
                  std::to_wstring(line));
    EXPECT_EQ(effects().size(), 1u);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(std::filesystem::exists(logFolder()));
    const std::wstring box = effectText(EffectKind::AlertBox);
    const Lines frames = linesOf(box.substr(box.find(L"\n\n") + 2));
    ASSERT_GT(frames.size(), 3u) << "the call stack";
    const std::string program = PROGRAM_FILE;
    EXPECT_TRUE(holds(frames[0], std::wstring(program.begin(), program.end()) + L" + 0x"))
        << "the caller's module";
    EXPECT_EQ(linesOf(callStackUnder(1000)).size(), 61u) << "as many as older systems walk";
}

TEST_F(Support, DebugStartupReportsEverywhere) {
    start(1, 0);
    host::clearEffects();
    int line = failCheck();
    EXPECT_EQ(effects()[0].kind, EffectKind::AlertBox) << "the box comes first";
    const Lines output = linesOf(effectText(EffectKind::StandardOutput));
    ASSERT_GT(output.size(), 2u);
    EXPECT_EQ(output[0], L"[16:19:18] GroupCommands(" + std::to_wstring(line) +
                             L"): Assertion in \"VelmoGroup\" (acdbGetObjectId(objIdGB, ent) == "
                             L"Acad::eOk).");
    EXPECT_EQ(output[1].substr(0, 11), L"[16:19:18] ") << "the call stack";
    EXPECT_EQ(loggedLines(), output);
    EXPECT_EQ(effectText(EffectKind::DebugOutput), L"") << "no debugger is there";
    host::clearEffects();
    host::setDebuggerPresent(true);
    failCheck();
    EXPECT_EQ(effectText(EffectKind::DebugOutput), effectText(EffectKind::StandardOutput));
    const EffectKind text[] = {EffectKind::StandardOutput, EffectKind::DebugOutput,
                               EffectKind::FileWrite, EffectKind::FileWrite};
    std::vector<EffectKind> inOrder = {EffectKind::AlertBox};  // then report and call stack
    inOrder.insert(inOrder.end(), std::begin(text), std::end(text));
    inOrder.insert(inOrder.end(), std::begin(text), std::end(text));
    inOrder.push_back(EffectKind::Breakpoint);
    EXPECT_EQ(effectKinds(), inOrder);
    host::clearEffects();
    G_diagnostics.logFileEnabled = false;
    diagnosticsOutput(L"text");
    EXPECT_EQ(effectText(EffectKind::StandardOutput), L"[16:19:18] text");
}

TEST_F(Support, ModuleNameComesFromTheHandle) {
    const std::pair<std::wstring, const wchar_t*> cases[] = {
        {L"/opt/a.b/Name#With.Dots.arx", L"Name#With.Dots"},
        {L"/opt/a.b/Bare", L"Bare"},
        {L"/" + std::wstring(3000, L'x') + L"/Long.arx", L"Long"}};
    start(0, 1);
    for (const auto& [path, name] : cases) {
        host::setModuleFileName(module(), path);
        host::clearEffects();
        failCheck();
        EXPECT_EQ(linesOf(onlyBox())[0], std::wstring(L"Assertion Failure: ") + name);
    }
}

}  // namespace
