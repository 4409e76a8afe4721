// The stood-in side of the support tests: the clock is fixed, effects record themselves.
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include "host/control/clock.h"
#include "host/control/fake_windows.h"
#include "host/control/windows_setup.h"
#include "support_fixture.h"

namespace {

constexpr std::time_t kMoment = 1358259558;            // 2013-01-15 14:19:18 UTC
constexpr std::time_t kWorkstationStart = 1358150400;  // 2013-01-14 08:00:00 UTC

int handleOfModule;

std::string workingLogFile() {
    return "VelmoGroup.arx.20130114080000_20130115141918_" + std::to_string(getpid()) + ".log";
}

}  // namespace

void Support::prepareSystem() {
    setenv("TZ", "TST-2", 1);
    tzset();
    host::clockFix(kMoment);
    host::setModuleFileName(module(), L"C:\\Program Files\\Pelltrix.Apps\\VelmoGroup.arx");
    host::setWorkstationStart(kWorkstationStart);
}

void Support::restoreSystem() {
    EXPECT_EQ(host::openRegistryKeys(), 0);
    host::closeRegistryKeys();
}

void* Support::module() { return &handleOfModule; }

void* Support::moduleNamed(const std::wstring& fileName) {
    static int handle;
    host::setModuleFileName(&handle, L"/opt/a.b/" + fileName);
    return &handle;
}

void Support::collectEffects() {}

std::wstring Support::steadyTimes(std::wstring text) { return text; }

std::filesystem::path Support::temporaryFolder() {
    // Outside ASCII on purpose.
    return std::filesystem::path(::testing::TempDir()) /
           ("velmo-\xC3\xA4\xF0\x9D\x84\x9E-" + std::to_string(getpid()));
}

std::filesystem::path Support::workingLog() { return logFolder() / workingLogFile(); }

std::wstring Support::wide(const std::filesystem::path& path) {
    const std::u32string characters = path.u32string();
    return std::wstring(characters.begin(), characters.end());
}

void Support::letTimePass() { host::clockSleep(1000); }

void Support::expectSlept(std::uint64_t milliseconds) {
    EXPECT_EQ(host::clockSlept() - m_sleepsSeen, milliseconds);
    m_sleepsSeen = host::clockSlept();
}

void Support::expectWorkingLogName(const std::wstring& name) {
    EXPECT_EQ(name, wide(temporaryFolder()) + L"\\Velmo Diagnostics\\" + wide(workingLogFile()));
}
