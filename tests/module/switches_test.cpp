// The switches for what nobody knows of the real host: each is one that the module notices.
#include "common/scene.h"
#include "gtest/gtest.h"

namespace {

using tests::Scene;

/// What the module is told in a day's work, and what stands in the drawing behind each step.
std::string dayUnder(const host::Switches& settings) {
    Scene scene("(line line line) circle", settings);
    std::string day;
    for (const wchar_t* step :
         {L"PICK W 0,-1 4,9\n", L"COPY 0,0 50,0\n\n", L"PICK 1,0\n", L"COPYCLIP\n", L"PICK 2,0\n",
          L"PICK NONE\n", L"PICK 1,0\n", L"ERASE\n"}) {
        const std::string state = scene.after(step);
        for (const std::wstring& told : host::effectTexts(host::EffectKind::Notification))
            day += host::toUtf8(told) + ", ";
        day += state + "\n";
    }
    return day;
}

TEST(Switches, EachChangesWhatTheModuleHears) {
    const std::string usual = dayUnder({});
    for (std::size_t i = 0; i < std::size(tests::kFelt); ++i) {
        host::Switches settings;
        settings.*tests::kFelt[i] = !(settings.*tests::kFelt[i]);
        EXPECT_NE(dayUnder(settings), usual) << "switch " << i;
    }
}

}  // namespace
