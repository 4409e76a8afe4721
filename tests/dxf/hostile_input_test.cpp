// Damage of every byte of a drawing, and files that once brought the host down.
#include "common/drawing_trial.h"
#include "common/library.h"
#include "drawing_text.h"

namespace tests {
namespace {

class HostileInput : public DrawingFiles {
  protected:
    /// False, with a failure that names the damage, when the host broke a rule.
    bool takes(const std::string& text, const std::string& damage) {
        const trial::Trial tried = trial::tryDrawing(text, path("."));
        (tried.clean ? outcomes.clean : tried.loaded ? outcomes.damaged : outcomes.refused)++;
        // Only what is missing altogether stands in no line.
        const bool hasPlace = tried.line > 0 ||
                              tried.message.find("the file is empty") != std::string::npos ||
                              tried.message.find("no $ACADVER") != std::string::npos;
        EXPECT_TRUE(tried.loaded || hasPlace) << damage << ": " << tried.message;
        EXPECT_EQ(tried.fault, "") << damage;
        return tried.fault.empty() && (tried.loaded || hasPlace);
    }
    /// How the host took the damaged drawings, each of them by the rules of a trial.
    struct {
        int refused = 0, damaged = 0, clean = 0;
    } outcomes;
};

TEST_F(HostileInput, EveryCutIsRefused) {
    const std::string text = tagsOf(kDrawing);
    for (std::size_t length = 0; length + 1 < text.size(); ++length) {
        if (!takes(text.substr(0, length), "cut to " + std::to_string(length))) break;
    }
    EXPECT_EQ(outcomes.refused, static_cast<int>(text.size()) - 1);
    EXPECT_TRUE(takes(text.substr(0, text.size() - 1), "no last line end"));
    EXPECT_EQ(outcomes.clean, 1);
}

/// 1 and 4 make other digits and letters, 32 changes case and blanks, 64 makes control characters
/// of letters, 128 leaves ASCII.
class FlippedByte : public HostileInput, public testing::WithParamInterface<int> {};

TEST_P(FlippedByte, IsRefusedOrNamedOrHarmless) {
    const std::string text = tagsOf(kDrawing);
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string flipped = text;
        flipped[at] = static_cast<char>(flipped[at] ^ GetParam());
        if (!takes(flipped, "byte " + std::to_string(at))) break;
    }
    EXPECT_GT(outcomes.refused, 100);
    if (GetParam() < 128) {
        EXPECT_GT(outcomes.damaged + outcomes.clean, 100);
    }
}

INSTANTIATE_TEST_SUITE_P(Masks, FlippedByte, testing::Values(1, 4, 32, 64, 128));

TEST_F(HostileInput, FormerFindingsStayMended) {
    for (const auto& file : fuzzInputs("dxf"))
        EXPECT_EQ(trial::tryDrawing(tests::contentOf(file), path(".")).fault, "") << file;
}

}  // namespace
}  // namespace tests
