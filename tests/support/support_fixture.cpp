// The fixture of the support room's tests.
#include "support_fixture.h"

#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <sstream>

#include "diagnostics.h"
#include "host/control/clock.h"
#include "host/control/fake_windows.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "library.h"

namespace {

constexpr std::time_t kMoment = 1358259558;            // 2013-01-15 14:19:18 UTC
constexpr std::time_t kWorkstationStart = 1358150400;  // 2013-01-14 08:00:00 UTC

}  // namespace

void Support::SetUp() {
    host::resetWindows();
    host::setFaultPlan({});
    setenv("TZ", "TST-2", 1);
    tzset();
    host::clockFix(kMoment);
    host::setModuleFileName(module(), L"C:\\Program Files\\Pelltrix.Apps\\VelmoGroup.arx");
    host::setWorkstationStart(kWorkstationStart);
    host::setEnvironment(L"TEMP", wide(temporaryFolder()));
    std::filesystem::create_directories(temporaryFolder());
    G_diagnostics = {};
    host::clearEffects();
    slept();
}

void Support::TearDown() {
    host::setFaultPlan({});
    G_diagnostics = {};
    shutDownLibrary();
    EXPECT_EQ(host::openRegistryKeys(), 0);
    host::closeRegistryKeys();
    host::resetWindows();
}

void Support::start(unsigned debugStartup, unsigned assertStartup, bool finaliseLog) {
    host::setRegistryDword(host::moduleRegistryKey(), L"DebugStartup", debugStartup);
    host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", assertStartup);
    initialiseLibrary(L"Corvinstrand", static_cast<HMODULE>(module()), false, finaliseLog);
}

void* Support::module() {
    static int handle;
    return &handle;
}

void Support::setRegistryText(const std::wstring& key, const wchar_t* name,
                              const std::wstring& text) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(text.c_str());
    host::setRegistryValue(key, name, 1, {first, first + (text.size() + 1) * sizeof(wchar_t)});
}

std::wstring Support::onlyBox() {
    const Lines boxes = effectTexts(host::EffectKind::AlertBox);
    EXPECT_EQ(boxes.size(), 1u);
    return boxes.empty() ? std::wstring() : boxes[0].substr(0, boxes[0].find(L"\n\n"));
}

std::vector<host::EffectKind> Support::effectKinds() {
    std::vector<host::EffectKind> kinds;
    for (const host::Effect& effect : host::effects())
        kinds.push_back(effect.kind);
    return kinds;
}

Lines Support::reportedExpressions() {
    Lines expressions;
    for (const std::wstring& box : effectTexts(host::EffectKind::AlertBox)) {
        const std::size_t start = box.find(L"Assertion : <") + 13;
        expressions.push_back(box.substr(start, box.find(L">\nFile") - start));
    }
    return expressions;
}

std::filesystem::path Support::temporaryFolder() const {
    return m_folder.path() / "\xC3\xA4\xF0\x9D\x84\x9E";
}

std::filesystem::path Support::logFolder() const { return temporaryFolder() / "Velmo Diagnostics"; }

std::filesystem::path Support::workingLog() const {
    return logFolder() /
           ("VelmoGroup.arx.20130114080000_20130115141918_" + std::to_string(getpid()) + ".log");
}

std::filesystem::path Support::finalLog() const { return logFolder() / "VelmoGroup.arx.log"; }

void Support::writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    tests::write(path, bytes);
}

std::wstring Support::wide(const std::filesystem::path& path) {
    const std::u32string characters = path.u32string();
    return std::wstring(characters.begin(), characters.end());
}

Lines Support::loggedLines() const {
    Lines lines = linesOf(decodeLog(contentOf(workingLog())));
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (*line == L":-------------------------") return {line + 1, lines.end()};
    }
    ADD_FAILURE() << "no ruler line ends the header";
    return lines;
}

std::uint64_t Support::slept() {
    const std::uint64_t before = m_sleepsSeen;
    m_sleepsSeen = host::clockSlept();
    return m_sleepsSeen - before;
}

std::wstring decodeLog(const std::string& bytes) {
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        const auto unit = static_cast<wchar_t>(low | (high << 8));
        if (unit >= 0xDC00 && unit <= 0xDFFF && !text.empty()) {
            const long lead = text.back() - 0xD800L;
            text.back() = static_cast<wchar_t>(lead * 0x400 + (unit - 0xDC00) + 0x10000);
        } else {
            text += unit;
        }
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

Lines linesOf(const std::wstring& text) {
    Lines lines;
    std::wistringstream stream(text);
    for (std::wstring line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}
