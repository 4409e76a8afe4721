// The scripts that users are pointed to run to their end.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/drafting.h"
#include "gtest/gtest.h"
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

}  // namespace
