// The per-user switches, and what initialisation and shut-down make of them.
#include "diagnostics.h"
#include "host/control/fake_windows.h"
#include "host/control/faults.h"
#include "host/control/windows_setup.h"
#include "library.h"
#include "support_fixture.h"

namespace {

std::string settings() {
    return std::to_string(G_diagnostics.diagnosticLevel) +
           (G_diagnostics.assertionsEnabled ? " assert" : "") +
           (G_diagnostics.echoEnabled ? " echo" : "") +
           (G_diagnostics.logFileEnabled ? " file" : "");
}

std::string settingsOf(HMODULE module, unsigned debugType, std::vector<std::uint8_t> debugData,
                       unsigned assertType, std::vector<std::uint8_t> assertData) {
    host::setRegistryValue(host::moduleRegistryKey(), L"DebugStartup", debugType, debugData);
    host::setRegistryValue(host::moduleRegistryKey(), L"AssertStartup", assertType, assertData);
    G_diagnostics = {};
    initialiseLibrary(L"Corvinstrand", module, false, false);
    return settings();
}

TEST_F(Support, SwitchesDecideTheSettings) {
    const char* const expected[2][2] = {{"0", "1 assert"}, {"2 assert echo file", "1 assert"}};
    for (unsigned debug = 0; debug <= 1; ++debug) {
        for (unsigned assertion = 0; assertion <= 1; ++assertion) {
            G_diagnostics = {};
            start(debug, assertion);
            EXPECT_EQ(settings(), expected[debug][assertion]) << debug << assertion;
        }
    }
}

TEST_F(Support, OnlyADwordOfOneIsOn) {
    const auto here = static_cast<HMODULE>(module());
    const std::vector<std::uint8_t> one = {1, 0, 0, 0}, two = {2, 0, 0, 0};
    const std::vector<std::uint8_t> oneBig = {0, 0, 0, 1}, wide = {1, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(settingsOf(here, 4, one, 4, two), "2 assert echo file");
    EXPECT_EQ(settingsOf(here, 4, two, 4, oneBig), "0");
    EXPECT_EQ(settingsOf(here, 3, one, 11, wide), "0");
    EXPECT_EQ(settingsOf(here, 4, wide, 4, {1}), "0");
    EXPECT_EQ(settingsOf(here, 1, {'1', 0, 0, 0, 0, 0, 0, 0}, 1, {1, 0, 0, 0}), "0");
    EXPECT_EQ(settingsOf(here, 1, one, 4, one), "1 assert");
}

TEST_F(Support, SwitchesAreThoseOfTheProduct) {
    EXPECT_EQ(host::moduleRegistryKey(), L"HKCU\\Software\\Pelltrix\\Corvinstrand");
    for (const wchar_t* key :
         {L"HKLM\\Software\\Pelltrix\\Corvinstrand", L"HKCU\\Software\\Pelltrix",
          L"HKCU\\Software\\Corvinstrand", L"HKCU\\Software\\Pelltrix\\Corvinstrand\\Settings"}) {
        host::setRegistryDword(key, L"AssertStartup", 1);
    }
    initialiseLibrary(L"Corvinstrand", static_cast<HMODULE>(module()), false, false);
    EXPECT_EQ(settings(), "0");
}

TEST_F(Support, RegistryFailuresMeanOff) {
    for (const char* call : {"RegOpenKeyExW", "RegQueryValueExW", "GetFileVersionInfoW",
                             "GetFileVersionInfoSizeW", "VerQueryValueW", "GetModuleFileNameW"}) {
        G_diagnostics = {};
        host::setFaultPlan({1, true, call});
        start(1, 1);
        EXPECT_EQ(settings(), "0") << call;
        EXPECT_GT(host::faultsInjected(), 0) << call;
    }
    host::setFaultPlan({});
    host::setVersionResource(std::nullopt);
    start(1, 1);
    EXPECT_EQ(settings(), "0");
}

TEST_F(Support, InitialisationAndShutDownCheckThemselvesOnceChecksAreOn) {
    start(0, 1);
    initialiseLibrary(L"", static_cast<HMODULE>(module()), false, true);
    EXPECT_EQ(reportedExpressions(),
              (Lines{L"!G_bLibraryInitialised", L"!CString(sApplicationName).IsEmpty()"}));
    EXPECT_TRUE(holds(effectTexts(host::EffectKind::AlertBox)[0], L"File : <Library>"));
    host::clearEffects();
    host::setFaultPlan({1, true, "RegCloseKey"});
    start(0, 1);
    const std::wstring close = L"::RegCloseKey(hkRegistryKey) == ERROR_SUCCESS";
    EXPECT_EQ(reportedExpressions(), (Lines{L"!G_bLibraryInitialised", close, close}));
    host::closeRegistryKeys();
    host::clearEffects();
    shutDownLibrary();
    EXPECT_EQ(reportedExpressions(), Lines{});
    EXPECT_FALSE(G_bLibraryInitialised);
    EXPECT_TRUE(G_sApplicationName.IsEmpty());
    EXPECT_EQ(G_hCurrentModule, nullptr);
    shutDownLibrary();
    EXPECT_EQ(reportedExpressions(), (Lines{L"G_hCurrentModule != NULL", L"G_bLibraryInitialised",
                                            L"!G_sApplicationName.IsEmpty()"}));
    EXPECT_EQ(settings(), "1 assert");
}

}  // namespace
