// What only the stood-in Windows shows: a debugger, injected faults, a clock and names at will.
#include <unistd.h>

#include <cstring>
#include <filesystem>

#include "diagnostic_log.h"
#include "diagnostics.h"
#include "host/control/clock.h"
#include "host/control/fake_windows.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "library.h"
#include "message_service.h"
#include "support_fixture.h"

namespace {

using host::EffectKind;
using Lines = std::vector<std::wstring>;

constexpr wchar_t DIAG_SOURCE[] = L"GroupCommands";

void failCheck() { DIAG_ASSERT(1 == 2, L"1 == 2"); }

TEST_F(Support, AnAttachedDebuggerGetsReportsAndABreakpoint) {
    start(1, 0);
    failCheck();
    EXPECT_EQ(host::breakpointsHit(), 0) << "none is there";
    clearEffects();
    host::setDebuggerPresent(true);
    failCheck();
    const Lines output = linesOf(effectText(EffectKind::StandardOutput));
    ASSERT_GT(output.size(), 2u);
    EXPECT_EQ(linesOf(effectText(EffectKind::DebugOutput)), output);
    EXPECT_EQ(host::breakpointsHit(), 1);
}

TEST_F(Support, ADebuggerChangesNothingWithoutSwitches) {
    host::setDebuggerPresent(true);
    start(0, 0);
    failCheck();
    diagnosticsOutput(L"text");
    shutDownLibrary();
    EXPECT_TRUE(host::effects().empty());
    EXPECT_EQ(host::breakpointsHit(), 0);
}

TEST_F(Support, TheDebuggerGetsMessagesWithoutAnySwitch) {
    host::setDebuggerPresent(true);
    messageService(L"\ntext\n\n");
    EXPECT_EQ(effectTexts(EffectKind::DebugOutput), Lines{L"[16:19:18] \ntext\n\n"});
    EXPECT_EQ(effectTexts(EffectKind::CommandLine), Lines{L"text\n"});
    EXPECT_EQ(host::effects().size(), 2u);
}

TEST_F(Support, TheHeaderTellsTheMachine) {
    const std::wstring version = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    const std::wstring shell =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
    const std::wstring bios = L"HARDWARE\\DESCRIPTION\\System\\BIOS";
    const std::wstring processor = L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
    host::setRegistryText(L"HKLM\\" + version, L"ProductName", L"Windows 7");
    host::setRegistryText(L"HKLM\\" + version, L"CurrentVersion", L"6.1");
    host::setRegistryText(L"HKLM\\" + version, L"CurrentBuildNumber", L"7601");
    host::setRegistryText(L"HKLM\\" + version, L"SystemRoot", L"C:\\Windows");
    host::setRegistryText(L"HKCU\\" + shell, L"Personal", L"C:\\Documents");
    host::setRegistryText(L"HKCU\\" + shell, L"AppData", L"C:\\Roaming");
    host::setRegistryText(L"HKLM\\" + bios, L"BIOSVendor", L"Maker");
    host::setRegistryText(L"HKLM\\" + bios, L"BIOSVersion", L"2.0");
    host::setRegistryDword(L"HKLM\\" + processor, L"~MHz", 2400);
    host::setRegistryText(L"HKLM\\" + processor, L"ProcessorNameString", L"Quick");
    host::setRegistryText(L"HKLM\\" + processor, L"Identifier", L"x64");
    start(1, 0);
    diagnosticsOutput(L"one");
    diagnosticsOutput(L"two");
    char name[256] = {};
    ::gethostname(name, sizeof name);
    EXPECT_EQ(linesOf(decodeLog(readFile(workingLog()))),
              (Lines{L"Diagnostics started: Tue Jan 15 16:19:18 2013",
                     L"::HostName=" +
                         std::wstring(name, name + std::min<std::size_t>(std::strlen(name), 15)),
                     L"Windows::ProductName=Windows 7", L"Windows::CurrentVersion=6.1",
                     L"Windows::CurrentBuildNumber=7601", L"ShellFolder::Personal=C:\\Documents",
                     L"ShellFolder::AppData=C:\\Roaming", L"SystemFolder::SystemRoot=C:\\Windows",
                     L"BIOS::BIOSVendor=Maker", L"BIOS::BIOSVersion=2.0",
                     L"Hardware::id= 2400 MHz, Quick, x64",
                     L"PathLocation::Module=C:\\Program Files\\Pelltrix.Apps\\VelmoGroup.arx",
                     L"PathLocation::Diagnostics=" + diagnosticsFolder(),
                     L":-------------------------", L"[16:19:18] one", L"[16:19:18] two"}));
}

TEST_F(Support, EveryFailingFileCallIsRetried) {
    start(1, 0);
    const std::pair<const char*, long> calls[] = {
        {"CreateFileW", 1}, {"_wfopen", 1}, {"_wfopen", 2}, {"fwprintf_s", 1}, {"fwprintf_s", 2}};
    for (const auto& [name, number] : calls) {
        std::filesystem::remove(workingLog());
        host::setFaultPlan({number, false, name});
        diagnosticsOutput(L"kept");
        EXPECT_EQ(host::faultsInjected(), 1) << name << number;
        EXPECT_EQ(linesOf(decodeLog(readFile(workingLog()))).back().substr(11), L"kept");
    }
    std::filesystem::remove(workingLog());
    std::filesystem::create_symlink("/dev/full", workingLog());
    const std::uint64_t before = host::clockSlept();
    diagnosticsOutput(L"no room");
    EXPECT_EQ(host::clockSlept() - before, 5000u);
}

TEST_F(Support, TheTenthAttemptIsTheLast) {
    start(1, 0);
    diagnosticsOutput(L"0");
    host::lockFile(wide(workingLog()), 9);
    diagnosticsOutput(L"9");
    expectSlept(4500);
    EXPECT_EQ(loggedLines(), (Lines{L"[16:19:18] 0", L"[16:19:18] 9"}));
}

TEST_F(Support, WithoutTheServiceTheMachinesStartNamesTheLog) {
    start(1, 0);
    host::clockSleep(60000);
    host::setModuleFileName(module(), L"Other.arx");
    host::setWorkstationStart(std::nullopt);
    const std::wstring other = workingLogName();
    EXPECT_NE(other.find(L"\\Other.arx.20"), other.npos) << other.size();
    EXPECT_NE(other.find(L"_20130115142018_"), other.npos);
}

TEST_F(Support, RegistryFailuresMeanOff) {
    for (const char* call : {"RegOpenKeyExW", "RegQueryValueExW", "GetFileVersionInfoW",
                             "GetFileVersionInfoSizeW", "VerQueryValueW", "GetModuleFileNameW"}) {
        G_diagnostics = {};
        host::setFaultPlan({1, true, call});
        start(1, 1);
        EXPECT_EQ(G_diagnostics.diagnosticLevel, 0) << call;
        EXPECT_GT(host::faultsInjected(), 0) << call;
    }
}

TEST_F(Support, WithoutVersionResourceNoSwitchIsFound) {
    host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", 1);
    host::setVersionResource(std::nullopt);
    initialiseLibrary(L"Corvinstrand", static_cast<HMODULE>(module()), false, false);
    EXPECT_FALSE(G_diagnostics.assertionsEnabled);
}

TEST_F(Support, AKeyThatCannotBeClosedIsReported) {
    start(0, 1);
    clearEffects();
    host::setFaultPlan({1, true, "RegCloseKey"});
    start(0, 1);
    const std::wstring close = L"::RegCloseKey(hkRegistryKey) == ERROR_SUCCESS";
    EXPECT_EQ(reportedExpressions(), (Lines{L"!G_bLibraryInitialised", close, close}));
    host::closeRegistryKeys();
}

TEST_F(Support, LongModulePathIsNotCut) {
    host::setModuleFileName(module(), L"/" + std::wstring(3000, L'x') + L"/Long.arx");
    start(0, 1);
    failCheck();
    EXPECT_EQ(linesOf(onlyBox())[0], L"Assertion Failure: Long");
}

}  // namespace
