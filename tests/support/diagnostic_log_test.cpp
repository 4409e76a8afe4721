// The diagnostic log files: names, encoding, header, locks, folders, the final log.
#include "diagnostic_log.h"

#include <unistd.h>

#include <cstring>
#include <filesystem>

#include "diagnostics.h"
#include "host/control/clock.h"
#include "host/control/fake_windows.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "library.h"
#include "log_header.h"
#include "message_service.h"
#include "support_fixture.h"

namespace {

using std::filesystem::exists;

const std::wstring kFolderFailed = L"KestFile::RecursiveCreateDirectory(sDirectory)";

std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(Support, LinesKeepTheirCharactersAndEndOnce) {
    const std::ptrdiff_t filesBefore = openFiles();
    start(1, 0);
    diagnosticsOutput(L"\x00E9 \x20AC \U0001D11E");
    diagnosticsOutput(L"\nfirst\nsecond\n\n\n");
    diagnosticsOutput(L"");
    EXPECT_EQ(openFiles(), filesBefore);
    EXPECT_EQ(loggedLines(), (Lines{L"[16:19:18] \x00E9 \x20AC \U0001D11E", L"[16:19:18] ",
                                    L"first", L"second", L"[16:19:18] "}));
    EXPECT_TRUE(holds(contentOf(workingLog()), "\x34\xD8\x1E\xDD")) << "surrogates";
}

TEST_F(Support, TheHeaderTellsTheMachine) {
    const std::wstring version = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    const std::wstring shell =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
    const std::wstring bios = L"HARDWARE\\DESCRIPTION\\System\\BIOS";
    const std::wstring processor = L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
    setRegistryText(L"HKLM\\" + version, L"ProductName", L"Windows 7");
    setRegistryText(L"HKLM\\" + version, L"CurrentVersion", L"6.1");
    setRegistryText(L"HKLM\\" + version, L"CurrentBuildNumber", L"7601");
    setRegistryText(L"HKLM\\" + version, L"SystemRoot", L"C:\\Windows");
    setRegistryText(L"HKCU\\" + shell, L"Personal", L"C:\\Documents");
    setRegistryText(L"HKCU\\" + shell, L"AppData", L"C:\\Roaming");
    setRegistryText(L"HKLM\\" + bios, L"BIOSVendor", L"Maker");
    host::setRegistryDword(L"HKLM\\" + bios, L"BIOSVersion", 2);
    host::setRegistryDword(L"HKLM\\" + processor, L"~MHz", 2400);
    setRegistryText(L"HKLM\\" + processor, L"ProcessorNameString", L"Quick");
    setRegistryText(L"HKLM\\" + processor, L"Identifier", L"x64");
    start(1, 0);
    EXPECT_FALSE(holds(logHeader(L""), L"BIOSVersion")) << "it is no text";
    setRegistryText(L"HKLM\\" + bios, L"BIOSVersion", L"2.0");
    diagnosticsOutput(L"one");
    diagnosticsOutput(L"two");
    char name[256] = {};
    ::gethostname(name, sizeof name);
    EXPECT_EQ(linesOf(decodeLog(contentOf(workingLog()))),
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

TEST_F(Support, ALogThatCannotBeWrittenIsTriedTenTimes) {
    start(1, 0);
    const std::pair<long, std::uint64_t> cases[] = {{0, 0}, {3, 1500}, {9, 4500}, {10, 5000}};
    for (const auto& [locked, pause] : cases) {
        if (locked > 0) host::lockFile(wide(workingLog()), locked);
        diagnosticsOutput(std::to_wstring(locked));
        EXPECT_EQ(slept(), pause);
    }
    EXPECT_EQ(loggedLines(), (Lines{L"[16:19:18] 0", L"[16:19:18] 3", L"[16:19:19] 9"}));
    const std::pair<const char*, long> calls[] = {
        {"CreateFileW", 1}, {"_wfopen", 1}, {"_wfopen", 2}, {"fwprintf_s", 1}, {"fwprintf_s", 2}};
    for (const auto& [name, number] : calls) {
        std::filesystem::remove(workingLog());
        host::setFaultPlan({number, false, name});
        diagnosticsOutput(L"kept");
        EXPECT_EQ(host::faultsInjected(), 1) << name << number;
        EXPECT_EQ(linesOf(decodeLog(contentOf(workingLog()))).back().substr(11), L"kept");
    }
    std::filesystem::remove(workingLog());
    std::filesystem::create_symlink("/dev/full", workingLog());
    slept();
    diagnosticsOutput(L"no room");
    EXPECT_EQ(slept(), 5000u);
    EXPECT_TRUE(reportedExpressions().empty()) << "a lost line is not reported";
}

TEST_F(Support, AFolderThatCannotBeMadeIsReportedOnceAWrite) {
    start(1, 0);
    writeFile(logFolder(), "a file where the folder should be");
    messageService(L"still printed");
    EXPECT_EQ(reportedExpressions(), Lines{kFolderFailed});
    EXPECT_TRUE(holds(onlyBox(), L"\nFile : <Diagnostics>\n"));
    EXPECT_EQ(effectText(host::EffectKind::CommandLine), L"still printed\n");
    EXPECT_EQ(contentOf(logFolder()), "a file where the folder should be");
    std::filesystem::remove_all(temporaryFolder());
    diagnosticsOutput(L"text");
    EXPECT_EQ(loggedLines()[0].substr(11), L"text") << "missing parents are made";
}

TEST_F(Support, TheFolderIsTempElseTmp) {
    const std::wstring folder = diagnosticsFolder();
    EXPECT_EQ(folder, wide(temporaryFolder()) + L"\\Velmo Diagnostics\\");
    host::setEnvironment(L"TMP", L"D:\\tmp\\");
    EXPECT_EQ(diagnosticsFolder(), folder);
    host::setEnvironment(L"TEMP", std::nullopt);
    EXPECT_EQ(diagnosticsFolder(), L"D:\\tmp\\Velmo Diagnostics\\");
    host::setEnvironment(L"TMP", std::nullopt);
    start(1, 0);
    diagnosticsOutput(L"text");
    shutDownLibrary();
    EXPECT_EQ(reportedExpressions(), Lines{kFolderFailed});
    EXPECT_TRUE(effectTexts(host::EffectKind::FileWrite).empty());
}

TEST_F(Support, TheWorkingLogsNameIsKept) {
    start(1, 0);
    const std::wstring name = workingLogName();
    EXPECT_EQ(name,
              wide(temporaryFolder()) + L"\\Velmo Diagnostics\\" + wide(workingLog().filename()));
    host::clockSleep(60000);
    EXPECT_EQ(workingLogName(), name);
    host::setModuleFileName(module(), L"Other.arx");
    host::setWorkstationStart(std::nullopt);  // the machine's start in its place
    const std::wstring other = workingLogName();
    EXPECT_TRUE(holds(other, L"\\Other.arx.20"));
    EXPECT_TRUE(holds(other, L"_20130115142018_"));
}

TEST_F(Support, InitialisationDeletesAFormerWorkingLog) {
    writeFile(workingLog(), "former");
    start(0, 1);
    EXPECT_TRUE(exists(workingLog()));
    G_diagnostics = {};
    start(1, 0);
    EXPECT_FALSE(exists(workingLog()));
    writeFile(workingLog(), "former");
    G_diagnostics = {};
    host::lockFile(wide(workingLog()), 1);
    start(1, 0);
    EXPECT_TRUE(exists(workingLog())) << "it could not be opened";
}

TEST_F(Support, ShutDownMakesTheFinalLog) {
    writeFile(finalLog(), "older");
    start(0, 0);
    shutDownLibrary();
    EXPECT_EQ(contentOf(finalLog()), "older") << "without a working log it stays";
    start(1, 0);
    diagnosticsOutput(L"text");
    const std::string log = contentOf(workingLog());
    shutDownLibrary();
    EXPECT_EQ(contentOf(finalLog()), log);
    std::wstring written;
    for (const std::wstring& path : effectTexts(host::EffectKind::FileWrite))
        written += path.substr(path.find_last_of(L"\\/") + 1) + L'\n';
    const std::wstring working = wide(workingLog().filename()) + L'\n',
                       last = L"VelmoGroup.arx.log\n";
    EXPECT_EQ(written, working + working + last + last);
    EXPECT_FALSE(exists(workingLog()));
    EXPECT_TRUE(reportedExpressions().empty());
    EXPECT_FALSE(G_diagnostics.logFileEnabled);
    start(1, 0, false);
    diagnosticsOutput(L"text");
    shutDownLibrary();
    EXPECT_TRUE(exists(workingLog())) << "not to be finalised";
    EXPECT_EQ(contentOf(finalLog()), log);
}

TEST_F(Support, AFinalLogThatCannotBeMadeIsReported) {
    writeFile(finalLog(), "older");
    start(1, 0);
    diagnosticsOutput(L"text");
    host::lockFile(wide(finalLog()), 1);
    shutDownLibrary();
    EXPECT_EQ(reportedExpressions(),
              (Lines{L"::DeleteFile(sFinalLog)", L"::MoveFile(sWorkingLog, sFinalLog)"}));
    host::lockFile(wide(finalLog()), 0);
    EXPECT_EQ(contentOf(finalLog()), "older");
    EXPECT_TRUE(exists(workingLog()));
    EXPECT_FALSE(G_bLibraryInitialised);
}

}  // namespace
