// The scripts that users are pointed to run to their end.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/drafting.h"
#include "gtest/gtest.h"
#include "host/control/effects.h"
#include "host/text/text_codec.h"

namespace {

std::wstring textOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return host::fromUtf8(text.str());
}

TEST(Samples, EveryScriptRunsWithoutAFailedCommand) {
    int scripts = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SAMPLES_FOLDER)) {
        if (entry.path().extension() != ".scr") continue;
        SCOPED_TRACE(entry.path().string());
        tests::Drafting drafting;
        EXPECT_EQ(drafting.session().runScript(textOf(entry.path())), host::CommandStatus::Done);
        ++scripts;
    }
    EXPECT_GT(scripts, 0);
}

TEST(Samples, TheDrawingIsSound) {
    tests::Drafting drafting(std::string(SAMPLES_FOLDER) + "/plan.dxf");  // checked at its end
    EXPECT_GT(drafting.order().size(), 100u);
}

TEST(Samples, TheTourSaysWhatThePageSays) {
    tests::Drafting drafting;
    const std::wstring said =
        drafting.run(textOf(std::filesystem::path(SAMPLES_FOLDER) / "try_groups.scr"));
    for (const wchar_t* line :
         {L"Select entities to form an VelmoGroup:", L"Entity Removed, 3 still in the Group.",
          L"Nothing selected", L"3 Entities Ungrouped.", L"GroupCommands : "}) {
        EXPECT_NE(said.find(line), std::wstring::npos) << host::toUtf8(line);
    }
}

}  // namespace
