// Scripts that once brought the host down, and drawings nested without measure.
#include "script_trial.h"
#include "session_fixture.h"

namespace {

using HostileInput = SessionTest;

/// What fuzzing found, and the seeds it starts from; see tests/fuzz.
TEST(HostileScripts, FormerFindingsStayMended) {
    const tests::ScratchFolder scratch;
    int tried = 0;
    for (const char* folder : {"/fuzz/regressions/script", "/fuzz/corpus/script"}) {
        for (const auto& entry :
             std::filesystem::directory_iterator(TESTS_FOLDER + std::string(folder))) {
            const std::string text = contentOf(entry.path().string());
            EXPECT_EQ(faultOfScript(text, scratch.path().string()), "") << entry.path();
            ++tried;
        }
    }
    EXPECT_GE(tried, 5);
}

/// A line with an extension dictionary that owns a dictionary that owns a dictionary ...
std::string nestedDictionaries(int depth) {
    const auto group = [](int code, const std::string& value) {
        return std::to_string(code) + "\n" + value + "\n";
    };
    const auto handle = [](int level) { return formatHandle(0x1000 + level); };
    std::string text =
        "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1027\n9\n$HANDSEED\n5\nFFFFF\n0\nENDSEC\n"
        "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n30\n102\n{ACAD_XDICTIONARY\n";
    text +=
        group(360, handle(0)) +
        "102\n}\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n30\n0\n11\n9\n21\n0\n31\n0\n"
        "0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n5\n40\n330\n0\n100\nAcDbDictionary\n";
    for (int level = 0; level < depth; ++level) {
        text += group(0, "DICTIONARY") + group(5, handle(level));
        text += group(330, level == 0 ? "30" : handle(level - 1));
        text += group(100, "AcDbDictionary") + group(280, "1");
        if (level + 1 < depth) text += group(3, "BELOW") + group(360, handle(level + 1));
    }
    return text + "0\nENDSEC\n0\nEOF\n";
}

/// Depth costs no stack: what follows owners works off a list.
TEST_F(HostileInput, DeepNestingIsEditedLikeAnything) {
    write(file("deep.dxf"), nestedDictionaries(50000));
    ASSERT_EQ(session->openDrawing(file("deep.dxf")).error, "");
    EXPECT_EQ(problemsOf(L"ERASE ALL\n\nU\nCOPY ALL\n\n0,0 5,5\n\nAUDIT\nU\nREDO\n"), "");
    EXPECT_EQ(problemsOf(L"COPYCLIP ALL\n\nNEW\nPASTECLIP 0,0\nAUDIT\n"), "");
    EXPECT_EQ(session->saveDrawing(file("pasted.dxf")).error, "");
}

}  // namespace
