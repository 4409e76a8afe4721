// The diagnostic log files: names, encoding, header, locks, folders, the final log.
#include "diagnostic_log.h"

#include <filesystem>

#include "diagnostics.h"
#include "host/control/windows_setup.h"
#include "library.h"
#include "message_service.h"
#include "support_fixture.h"

namespace {

using Lines = std::vector<std::wstring>;
const std::wstring kFolderFailed = L"KestFile::RecursiveCreateDirectory(sDirectory)";

TEST_F(Support, LinesKeepTheirCharactersAndEndOnce) {
    start(1, 0);
    diagnosticsOutput(L"\x00E9 \x20AC \U0001D11E");
    diagnosticsOutput(L"\nfirst\nsecond\n\n\n");
    diagnosticsOutput(L"");
    EXPECT_EQ(loggedLines(), (Lines{L"[16:19:18] \x00E9 \x20AC \U0001D11E", L"[16:19:18] ",
                                    L"first", L"second", L"[16:19:18] "}));
    EXPECT_NE(readFile(workingLog()).find("\x34\xD8\x1E\xDD"), std::string::npos) << "surrogates";
}

TEST_F(Support, ALockedLogIsTriedTenTimes) {
    start(1, 0);
    const std::pair<long, std::uint64_t> cases[] = {{0, 0}, {3, 1500}, {10, 5000}};
    for (const auto& [locked, pause] : cases) {
        if (locked > 0) host::lockFile(wide(workingLog()), locked);
        expectSlept(0);
        diagnosticsOutput(std::to_wstring(locked));
        expectSlept(pause);
    }
    EXPECT_EQ(loggedLines(), (Lines{L"[16:19:18] 0", L"[16:19:18] 3"}));
    EXPECT_TRUE(reportedExpressions().empty()) << "a lost line is not reported";
}

TEST_F(Support, AFolderThatCannotBeMadeIsReportedOnceAWrite) {
    start(1, 0);
    std::filesystem::remove_all(temporaryFolder());
    writeFile(temporaryFolder(), "a file where the folder should be");
    messageService(L"still printed");
    EXPECT_EQ(reportedExpressions(), Lines{kFolderFailed});
    EXPECT_EQ(effectText(host::EffectKind::CommandLine), L"still printed\n");
    clearEffects();
    diagnosticsOutput(L"text");
    EXPECT_EQ(reportedExpressions(), Lines{kFolderFailed});
    EXPECT_EQ(readFile(temporaryFolder()), "a file where the folder should be");
}

TEST_F(Support, MissingParentsAreMade) {
    start(1, 0);
    std::filesystem::remove_all(temporaryFolder());
    diagnosticsOutput(L"text");
    EXPECT_EQ(loggedLines(), Lines{L"[16:19:18] text"});
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
    expectWorkingLogName(name);
    letTimePass();
    EXPECT_EQ(workingLogName(), name);
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
    start(1, 0);
    diagnosticsOutput(L"text");
    const std::string log = readFile(workingLog());
    shutDownLibrary();
    EXPECT_EQ(readFile(finalLog()), log);
    EXPECT_FALSE(exists(workingLog()));
    EXPECT_TRUE(reportedExpressions().empty());
    EXPECT_FALSE(G_diagnostics.logFileEnabled);
    start(1, 0, false);
    diagnosticsOutput(L"text");
    shutDownLibrary();
    EXPECT_TRUE(exists(workingLog())) << "not to be finalised";
    EXPECT_EQ(readFile(finalLog()), log);
}

TEST_F(Support, WithoutAWorkingLogTheFinalOneStays) {
    writeFile(finalLog(), "older");
    start(0, 0);
    shutDownLibrary();
    EXPECT_EQ(readFile(finalLog()), "older");
    EXPECT_TRUE(effects().empty());
}

TEST_F(Support, AFinalLogThatCannotBeMadeIsReported) {
    writeFile(finalLog(), "older");
    start(1, 0);
    diagnosticsOutput(L"text");
    clearEffects();
    host::lockFile(wide(finalLog()), 1);
    shutDownLibrary();
    EXPECT_EQ(reportedExpressions(),
              (Lines{L"::DeleteFile(sFinalLog)", L"::MoveFile(sWorkingLog, sFinalLog)"}));
    host::lockFile(wide(finalLog()), 0);
    EXPECT_EQ(readFile(finalLog()), "older");
    EXPECT_TRUE(exists(workingLog()));
    EXPECT_FALSE(G_bLibraryInitialised);
}

}  // namespace
