// Scripts that once brought the host down, and drawings nested without measure.
#include "common/library.h"
#include "common/tag_literals.h"
#include "script_trial.h"
#include "session_fixture.h"

namespace {

using HostileInput = SessionTest;

TEST(HostileScripts, FormerFindingsStayMended) {
    const tests::ScratchFolder scratch;
    for (const auto& file : tests::fuzzInputs("script"))
        EXPECT_EQ(faultOfScript(contentOf(file), scratch.path().string()), "") << file;
}

/// A line with an extension dictionary that owns a dictionary that owns a dictionary ...
std::string nestedDictionaries(int depth) {
    const auto handle = [](int level) { return formatHandle(0x1000 + level); };
    std::string groups =
        "0 SECTION|2 HEADER|9 $ACADVER|1 AC1027|9 $HANDSEED|5 FFFFF|0 ENDSEC|"
        "0 SECTION|2 ENTITIES|0 LINE|5 30|102 {ACAD_XDICTIONARY|360 " +
        handle(0) +
        "|102 }|100 AcDbEntity|8 0|100 AcDbLine|10 0|20 0|30 0|11 9|21 0|31 0|0 ENDSEC|"
        "0 SECTION|2 OBJECTS|0 DICTIONARY|5 40|330 0|100 AcDbDictionary";
    for (int level = 0; level < depth; ++level) {
        groups += "|0 DICTIONARY|5 " + handle(level) + "|330 ";
        groups += (level == 0 ? "30" : handle(level - 1)) + "|100 AcDbDictionary|280 1";
        if (level + 1 < depth) groups += "|3 BELOW|360 " + handle(level + 1);
    }
    return tests::tagsOf(groups + "|0 ENDSEC|0 EOF");
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
