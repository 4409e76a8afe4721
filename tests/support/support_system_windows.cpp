// The real side of the support tests: standard output goes to a file, times are the machine's.
#include <windows.h>

#include <ctime>
#include <regex>

#include "common/windows_watch.h"
#include "diagnostic_log.h"
#include "host/control/windows_setup.h"
#include "library.h"
#include "support_fixture.h"

namespace {

constexpr wchar_t kSteadyTime[] = L"[16:19:18]";

ULONGLONG testBegan = 0;  // GetTickCount64

/// Copies of the module that the current test has loaded.
std::vector<HMODULE> namedModules;

/// Seconds from a local time of day until now.
long secondsAgo(const std::wstring& time) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    const long then = std::stol(time.substr(0, 2)) * 3600 + std::stol(time.substr(3, 2)) * 60 +
                      std::stol(time.substr(6, 2));
    constexpr long day = 24 * 3600;
    return (now.wHour * 3600 + now.wMinute * 60 + now.wSecond - then + day) % day;
}

/// Seconds between two moments in the log name's form, UTC.
double secondsUntilNow(const std::wstring& moment) {
    std::tm fields = {};
    fields.tm_year = std::stoi(moment.substr(0, 4)) - 1900;
    fields.tm_mon = std::stoi(moment.substr(4, 2)) - 1;
    fields.tm_mday = std::stoi(moment.substr(6, 2));
    fields.tm_hour = std::stoi(moment.substr(8, 2));
    fields.tm_min = std::stoi(moment.substr(10, 2));
    fields.tm_sec = std::stoi(moment.substr(12, 2));
    return std::difftime(std::time(nullptr), _mkgmtime(&fields));
}

}  // namespace

void Support::prepareSystem() {
    testBegan = GetTickCount64();
    captureOutput();
}

void Support::restoreSystem() {
    endCapture();
    for (const HMODULE handle : namedModules)
        FreeLibrary(handle);
    namedModules.clear();
}

void* Support::module() {
    static const HMODULE handle = LoadLibraryA(MODULE_FILE);
    EXPECT_NE(handle, nullptr) << MODULE_FILE;
    return handle;
}

void* Support::moduleNamed(const std::wstring& fileName) {
    const std::filesystem::path copy = temporaryFolder() / fileName;
    std::filesystem::copy_file(MODULE_FILE, copy);
    // A name without extension ends in a point here, or gets the usual extension.
    const bool bare = fileName.find(L'.') == fileName.npos;
    const HMODULE handle = LoadLibraryW((copy.wstring() + (bare ? L"." : L"")).c_str());
    EXPECT_NE(handle, nullptr) << copy;
    namedModules.push_back(handle);
    return handle;
}

void Support::collectEffects() { collectOutput(); }

std::wstring Support::steadyTimes(std::wstring text) {
    const auto longest = static_cast<long>((GetTickCount64() - testBegan) / 1000) + 1;
    for (std::size_t at = 0; at < text.size(); at = text.find(L'\n', at) + 1) {
        static const std::wregex time(L"\\[\\d\\d:\\d\\d:\\d\\d\\]");
        if (std::regex_match(text.substr(at, 10), time) &&
            secondsAgo(text.substr(at + 1, 8)) <= longest) {
            text.replace(at, 10, kSteadyTime);
        }
        if (text.find(L'\n', at) == text.npos) break;
    }
    return text;
}

std::filesystem::path Support::temporaryFolder() {
    static const std::filesystem::path parent = ::testing::TempDir();
    // Outside ASCII on purpose.
    return parent / (L"velmo-\x00E4\U0001D11E-" + std::to_wstring(GetCurrentProcessId()));
}

std::filesystem::path Support::workingLog() {
    const HMODULE former = G_hCurrentModule;
    G_hCurrentModule = static_cast<HMODULE>(module());
    const std::wstring name = workingLogName();
    G_hCurrentModule = former;
    return name;
}

std::wstring Support::wide(const std::filesystem::path& path) { return path.wstring(); }

void Support::letTimePass() { Sleep(1000); }

void Support::expectSlept(std::uint64_t milliseconds) {
    const std::uint64_t now = GetTickCount64();
    constexpr std::uint64_t kWork = 450;  // less than one more pause
    if (m_sleepsSeen != 0) {
        EXPECT_GE(now - m_sleepsSeen + 20, milliseconds);
        EXPECT_LE(now - m_sleepsSeen, milliseconds + kWork);
    }
    m_sleepsSeen = now;
}

void Support::expectWorkingLogName(const std::wstring& name) {
    const std::wstring folder = wide(temporaryFolder()) + L"\\Velmo Diagnostics\\";
    ASSERT_EQ(name.substr(0, folder.size()), folder);
    std::wsmatch parts;
    const std::wstring file = name.substr(folder.size());
    const std::wregex pattern(L"VelmoGroup\\.arx\\.(\\d{14})_(\\d{14})_(\\d+)\\.log");
    ASSERT_TRUE(std::regex_match(file, parts, pattern)) << std::string(file.begin(), file.end());
    // Without the workstation service the machine's start stands for its start.
    const double running = static_cast<double>(GetTickCount64()) / 1000.0;
    EXPECT_NEAR(secondsUntilNow(parts[1]), running, 3600.0);
    EXPECT_NEAR(secondsUntilNow(parts[2]), 0.0, 120.0);
    EXPECT_EQ(parts[3].str(), std::to_wstring(GetCurrentProcessId()));
}
