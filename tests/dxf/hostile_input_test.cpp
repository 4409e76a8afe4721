// Damage of every byte of a drawing, and files that once brought the host down.
#include <ctime>

#include "common/drawing_trial.h"
#include "drawing_text.h"
#include "host/tags/tags.h"

namespace dxf_tests {
namespace {

/// How the host took many damaged drawings; each of them by the rules of a trial.
struct Outcomes {
    int refused = 0;
    int damaged = 0;
    int clean = 0;
};

class HostileInput : public DrawingFiles {
  protected:
    /// False, with a failure that names the damage, when the host broke a rule.
    bool holds(const std::string& text, const std::string& damage) {
        const trial::Trial tried = trial::tryDrawing(text, path("."));
        (tried.clean ? m_outcomes.clean : tried.loaded ? m_outcomes.damaged : m_outcomes.refused)++;
        // Only what is missing altogether stands in no line.
        const bool hasPlace = tried.line > 0 ||
                              tried.message.find("the file is empty") != std::string::npos ||
                              tried.message.find("no $ACADVER") != std::string::npos;
        EXPECT_TRUE(tried.loaded || hasPlace) << damage << ": " << tried.message;
        EXPECT_EQ(tried.fault, "") << damage;
        return tried.fault.empty() && (tried.loaded || hasPlace);
    }
    const Outcomes& outcomes() const { return m_outcomes; }

  private:
    Outcomes m_outcomes;
};

TEST_F(HostileInput, EveryCutIsRefused) {
    const std::string text = dxf(kDrawing);
    for (std::size_t length = 0; length + 1 < text.size(); ++length) {
        if (!holds(text.substr(0, length), "cut to " + std::to_string(length))) break;
    }
    EXPECT_EQ(outcomes().refused, static_cast<int>(text.size()) - 1);
    EXPECT_TRUE(holds(text.substr(0, text.size() - 1), "no last line end"));
    EXPECT_EQ(outcomes().clean, 1);
}

/// 1 and 4 make other digits and letters, 32 changes case and blanks, 64 makes control characters
/// of letters, 128 leaves ASCII.
class FlippedByte : public HostileInput, public testing::WithParamInterface<int> {};

TEST_P(FlippedByte, IsRefusedOrNamedOrHarmless) {
    const std::string text = dxf(kDrawing);
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string flipped = text;
        flipped[at] = static_cast<char>(flipped[at] ^ GetParam());
        if (!holds(flipped, "byte " + std::to_string(at))) break;
    }
    EXPECT_GT(outcomes().refused, 100);
    if (GetParam() < 128) {
        EXPECT_GT(outcomes().damaged + outcomes().clean, 100);
    }
}

INSTANTIATE_TEST_SUITE_P(Masks, FlippedByte, testing::Values(1, 4, 32, 64, 128));

/// Many groups of a form, with "#" in it as a number that is a free handle.
std::string many(const std::string& form) {
    std::string text;
    for (int number = 0x1000; number < 0x1000 + 30000; ++number) {
        std::string group = form;
        for (std::size_t at; (at = group.find('#')) != std::string::npos;)
            group.replace(at, 1, host::formatHandle(static_cast<std::uint64_t>(number)));
        text += group + "\n";
    }
    return text;
}

/// Processor time of some work, in ticks.
template <typename Work>
double ticksOf(Work work) {
    const std::clock_t began = std::clock();
    work();
    return static_cast<double>(std::clock() - began) + 1.0;
}

/// Each of these once made the time of the check grow with the square of the drawing's size, to a
/// hundred times that of loading and more.
TEST_F(HostileInput, CheckingLargeDrawingsTakesNotMuchLongerThanLoadingThem) {
    const std::string begin =
        "0=SECTION|2=HEADER|9=$ACADVER|1=AC1027|9=$HANDSEED|5=FFFFF|0=ENDSEC\n";
    const std::string objects = "0=SECTION|2=OBJECTS\n";
    const std::string root = "0=DICTIONARY|5=40|330=0|100=AcDbDictionary\n";
    const std::string end = "0=ENDSEC|0=EOF\n";
    const std::string drawings[] = {
        // The root dictionary, supplied, is the last object.
        begin + objects + many("0=XRECORD|5=#|330=1|100=AcDbXrecord") + end,
        // An owner with many groups, for each of many dictionaries.
        begin + objects + root + many("3=#|360=#") +
            many("0=DICTIONARY|5=#|330=40|100=AcDbDictionary") + end,
        // A root dictionary with many entries and no layout, for each of many spaces.
        begin + "0=SECTION|2=TABLES|0=TABLE|2=BLOCK_RECORD|5=5|330=0|100=AcDbSymbolTable\n" +
            many("0=BLOCK_RECORD|5=#|330=5|100=AcDbSymbolTableRecord|100=AcDbBlockTableRecord|"
                 "2=*Paper_Space#") +
            "0=ENDTAB|0=ENDSEC\n" + objects + root + many("3=#|350=40") + end,
    };
    for (const std::string& drawing : drawings) {
        std::unique_ptr<host::Store> store;
        const double loading = ticksOf([&] { store = load(dxf(drawing)); });
        ASSERT_NE(store, nullptr);
        const double checking = ticksOf([&] { EXPECT_FALSE(host::checkDrawing(*store).empty()); });
        EXPECT_LT(checking / loading, 10);
        RecordProperty("check_by_load", std::to_string(checking / loading));
    }
}

/// What fuzzing found, and the seeds it starts from; see tests/fuzz.
TEST_F(HostileInput, FormerFindingsStayMended) {
    int tried = 0;
    for (const char* folder : {"/fuzz/regressions/dxf", "/fuzz/corpus/dxf"}) {
        for (const auto& entry :
             std::filesystem::directory_iterator(TESTS_FOLDER + std::string(folder))) {
            std::ostringstream text;
            text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
            const trial::Trial outcome = trial::tryDrawing(text.str(), path("."));
            EXPECT_EQ(outcome.fault, "") << entry.path();
            ++tried;
        }
    }
    EXPECT_GE(tried, 8);
}

}  // namespace
}  // namespace dxf_tests
