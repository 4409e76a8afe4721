// The fixture of the support room's tests, as far as it is the same everywhere.
#include "support_fixture.h"

#include <fstream>
#include <iterator>
#include <sstream>

#include "diagnostics.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "library.h"

void Support::SetUp() {
    host::resetWindows();
    host::setFaultPlan({});
    prepareSystem();
    host::setEnvironment(L"TEMP", wide(temporaryFolder()));
    std::filesystem::remove_all(temporaryFolder());
    std::filesystem::create_directories(temporaryFolder());
    G_diagnostics = {};
    clearEffects();
    m_sleepsSeen = 0;
    expectSlept(0);
}

void Support::TearDown() {
    host::setFaultPlan({});
    G_diagnostics = {};
    shutDownLibrary();
    restoreSystem();
    host::resetWindows();
    std::filesystem::remove_all(temporaryFolder());
}

void Support::start(unsigned debugStartup, unsigned assertStartup, bool finaliseLog) {
    host::setRegistryDword(host::moduleRegistryKey(), L"DebugStartup", debugStartup);
    host::setRegistryDword(host::moduleRegistryKey(), L"AssertStartup", assertStartup);
    initialiseLibrary(L"Corvinstrand", static_cast<HMODULE>(module()), false, finaliseLog);
}

std::vector<host::Effect> Support::effects() {
    collectEffects();
    std::vector<host::Effect> steady = host::effects();
    for (host::Effect& effect : steady)
        effect.text = steadyTimes(effect.text);
    return steady;
}

std::vector<std::wstring> Support::effectTexts(host::EffectKind kind) {
    std::vector<std::wstring> texts;
    for (const host::Effect& effect : effects()) {
        if (effect.kind == kind) texts.push_back(effect.text);
    }
    return texts;
}

std::wstring Support::effectText(host::EffectKind kind) {
    std::wstring whole;
    for (const std::wstring& text : effectTexts(kind))
        whole += text;
    return whole;
}

void Support::clearEffects() {
    collectEffects();
    host::clearEffects();
}

std::wstring Support::onlyBox() {
    const std::vector<std::wstring> boxes = effectTexts(host::EffectKind::AlertBox);
    EXPECT_EQ(boxes.size(), 1u);
    return boxes.empty() ? std::wstring() : boxes[0].substr(0, boxes[0].find(L"\n\n"));
}

std::vector<std::wstring> Support::reportedExpressions() {
    std::vector<std::wstring> expressions;
    for (const std::wstring& box : effectTexts(host::EffectKind::AlertBox)) {
        const std::size_t start = box.find(L"Assertion : <") + 13;
        expressions.push_back(box.substr(start, box.find(L">\nFile") - start));
    }
    return expressions;
}

std::filesystem::path Support::logFolder() { return temporaryFolder() / "Velmo Diagnostics"; }

std::filesystem::path Support::finalLog() { return logFolder() / "VelmoGroup.arx.log"; }

bool Support::exists(const std::filesystem::path& path) { return std::filesystem::exists(path); }

void Support::writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string Support::readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::wstring> Support::loggedLines() {
    const std::wstring text = steadyTimes(decodeLog(readFile(workingLog())));
    std::vector<std::wstring> lines = linesOf(text);
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
        const bool wideCharacters = sizeof(wchar_t) > 2;
        const bool second = wideCharacters && unit >= 0xDC00 && unit <= 0xDFFF && !text.empty();
        if (second) {
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

std::vector<std::wstring> linesOf(const std::wstring& text) {
    std::vector<std::wstring> lines;
    std::wistringstream stream(text);
    for (std::wstring line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}
