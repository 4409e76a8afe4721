// The fixture of the support room's tests.
#include "support_fixture.h"

#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "diagnostics.h"
#include "host/control/clock.h"
#include "host/control/faults.h"
#include "host/control/windows_control.h"
#include "library.h"

namespace {

constexpr std::time_t kMoment = 1358259558;            // 2013-01-15 14:19:18 UTC
constexpr std::time_t kWorkstationStart = 1358150400;  // 2013-01-14 08:00:00 UTC

int handleOfModule;

}  // namespace

void Support::SetUp() {
    setenv("TZ", "TST-2", 1);
    tzset();
    host::clockFix(kMoment);
    host::resetWindows();
    host::setFaultPlan({});
    host::setEnvironment(L"TEMP", wideTemporaryFolder());
    host::setModuleFileName(module(), L"C:\\Program Files\\Pelltrix.Apps\\VelmoGroup.arx");
    host::setWorkstationStart(kWorkstationStart);
    std::filesystem::remove_all(temporaryFolder());
    std::filesystem::create_directories(temporaryFolder());
    G_diagnostics = {};
    host::clearEffects();
}

void Support::TearDown() {
    host::setFaultPlan({});
    G_diagnostics = {};
    shutDownLibrary();
    std::filesystem::remove_all(temporaryFolder());
    EXPECT_EQ(host::openRegistryKeys(), 0);
    host::closeRegistryKeys();
}

void Support::start(unsigned debugStartup, unsigned assertStartup, bool finaliseLog) {
    host::setRegistryDword(host::moduleRegistryKey(), L"DebugStartup", debugStartup);
    host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", assertStartup);
    initialiseLibrary(L"Corvinstrand", static_cast<HMODULE>(module()), false, finaliseLog);
}

void* Support::module() { return &handleOfModule; }

std::wstring Support::onlyBox() {
    const std::vector<std::wstring> boxes = host::effectTexts(host::EffectKind::MessageBox);
    EXPECT_EQ(boxes.size(), 1u);
    return boxes.empty() ? std::wstring() : boxes[0].substr(0, boxes[0].find(L"\n\n"));
}

std::vector<std::wstring> Support::reportedExpressions() {
    std::vector<std::wstring> expressions;
    for (const std::wstring& box : host::effectTexts(host::EffectKind::MessageBox)) {
        const std::size_t start = box.find(L"Assertion : <") + 13;
        expressions.push_back(box.substr(start, box.find(L">\nFile") - start));
    }
    return expressions;
}

std::string Support::temporaryFolder() {
    // Outside ASCII on purpose.
    return ::testing::TempDir() + "velmo-\xC3\xA4\xF0\x9D\x84\x9E-" + std::to_string(getpid());
}

std::wstring Support::wideTemporaryFolder() {
    const std::string parent = ::testing::TempDir();
    return std::wstring(parent.begin(), parent.end()) + L"velmo-\x00E4\x1D11E-" +
           std::to_wstring(getpid());
}

std::string Support::logFolder() { return temporaryFolder() + "/Velmo Diagnostics/"; }

std::string Support::workingLogFile() {
    return "VelmoGroup.arx.20130114080000_20130115141918_" + std::to_string(getpid()) + ".log";
}

std::string Support::workingLog() { return logFolder() + workingLogFile(); }

std::string Support::finalLog() { return logFolder() + "VelmoGroup.arx.log"; }

bool Support::exists(const std::string& path) { return std::filesystem::exists(path); }

void Support::writeFile(const std::string& path, const std::string& bytes) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string Support::readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::wstring> Support::loggedLines() {
    std::vector<std::wstring> lines = linesOf(decodeLog(readFile(workingLog())));
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (*line == L":-------------------------") return {line + 1, lines.end()};
    }
    ADD_FAILURE() << "no ruler line ends the header";
    return lines;
}

std::wstring decodeLog(const std::string& bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        const auto unit = static_cast<wchar_t>(low | (high << 8));
        const bool second = unit >= 0xDC00 && unit <= 0xDFFF && !text.empty();
        if (second) text.back() = ((text.back() - 0xD800) << 10) + (unit - 0xDC00) + 0x10000;
        if (!second) text += unit;
    }
    EXPECT_EQ(bytes.size() % 2, 0u);
    EXPECT_EQ(text.substr(0, 1), L"\xFEFF");
    EXPECT_EQ(text.find(L'\xFEFF', 1), text.npos) << "a second byte-order mark";
    std::wstring plain;
    for (std::size_t i = 1; i < text.size(); ++i) {
        EXPECT_TRUE(text[i] != L'\n' || text[i - 1] == L'\r');
        if (text[i] != L'\r') plain += text[i];
    }
    return plain;
}

std::vector<std::wstring> linesOf(const std::wstring& text) {
    std::vector<std::wstring> lines;
    std::wistringstream stream(text);
    for (std::wstring line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}
