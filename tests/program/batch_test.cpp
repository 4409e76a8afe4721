// Scripts that stop, and many drawings in one run.
#include "program_fixture.h"

namespace {

/// Erases the first two entities of a drawing, and saves it in between.
constexpr char kErasesTwo[] = "ERASE (handent \"2A\")\n\nQSAVE\nERASE (handent \"2B\")\n\n";

class BatchTest : public ProgramTest {
  protected:
    BatchTest() {
        EXPECT_EQ(
            script("POINT 1,1\nSAVEAS one.dxf\nPOINT 2,2\nPOINT 3,3\nSAVEAS three.dxf\n").status,
            0);
        write("bad.dxf", "junk\n");
    }
    static int pointsIn(const std::string& file) {
        return tests::countOf("\nPOINT\n", contentOf(file));
    }
};

TEST_F(BatchTest, AScriptStopsAtTheFirstFailure) {
    const std::string erases = "OPEN nowhere.dxf\nERASE ALL\n\nQSAVE\n";
    const Result run = script(erases, "three.dxf");
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(
        run.errors,
        "drafthost: three.dxf: standard input:1: OPEN failed: nowhere.dxf: cannot be read: No "
        "such file or directory; choose a DXF drawing\n");
    EXPECT_EQ(pointsIn("three.dxf"), 3);
    EXPECT_EQ(script(erases, "--keep-going three.dxf").status, 3);
    EXPECT_EQ(pointsIn("three.dxf"), 0);
    EXPECT_EQ(
        script("CIRCLE 0,0 -1\nQSAVE\n", "one.dxf").errors,
        "drafthost: one.dxf: standard input:1: CIRCLE failed: The radius must be greater than "
        "zero\n");
}

TEST_F(BatchTest, EachDrawingIsWorkedOnAloneAndGoesToTheFolder) {
    const std::string one = contentOf("one.dxf"), three = contentOf("three.dxf");
    const std::string files = "--output-dir out three.dxf bad.dxf nowhere.dxf one.dxf";
    const Result run = script(kErasesTwo, "-j 1 " + files);
    EXPECT_EQ(run.status, 3);
    EXPECT_TRUE(holds(run.errors, "drafthost: one.dxf: standard input:5: ERASE failed: "));
    const std::size_t summary = run.errors.find("drafthost: failed:");
    ASSERT_NE(summary, std::string::npos) << run.errors;
    EXPECT_EQ(run.errors.substr(summary),
              "drafthost: failed: one.dxf: its script failed\n"
              "drafthost: 4 drawings, 3 failed\n");
    EXPECT_EQ(pointsIn("out/three.dxf"), 1);
    EXPECT_FALSE(std::filesystem::exists("out/one.dxf")) << "it was saved before the failure";
    write("out/one.dxf", "an earlier result");
    write("out/one.bak", "one before");
    EXPECT_EQ(script(kErasesTwo, "--output-dir out one.dxf").status, 1);
    EXPECT_EQ(contentOf("out/one.dxf") + contentOf("out/one.bak"), "an earlier resultone before");
    EXPECT_EQ(script("QSAVE\n", "--output-dir out one.dxf").status, 0);
    EXPECT_EQ(contentOf("out/one.bak"), "an earlier result");
    std::filesystem::remove("out/one.dxf");
    EXPECT_EQ(contentOf("one.dxf") + contentOf("three.dxf"), one + three);
    const Result both = script(kErasesTwo, "-j 2 " + files);
    EXPECT_EQ(both.output, run.output);
    EXPECT_EQ(both.errors, run.errors);
    EXPECT_EQ(script(kErasesTwo, "-q " + files).output, "");
    EXPECT_EQ(script("CLOSE\n", "--output-dir out one.dxf").status, 1);
}

TEST_F(BatchTest, WhatWouldOverwriteADrawingOfTheRunIsRefused) {
    std::filesystem::create_directory("a");
    std::filesystem::copy("one.dxf", "a/one.dxf");
    const Result two = script("REGEN\n", "--output-dir out one.dxf a/../one.dxf");
    EXPECT_EQ(two.status, 2);
    EXPECT_EQ(two.errors.rfind("drafthost: out", 0), 0u) << two.errors;
    EXPECT_FALSE(std::filesystem::exists("out"));
    EXPECT_EQ(script("REGEN\n", "--output-dir . a/../three.dxf one.dxf").status, 2);
    EXPECT_EQ(script("REGEN\n", "--output-dir one.dxf three.dxf").status, 4);
    std::filesystem::create_hard_link("one.dxf", "same.dxf");
    EXPECT_EQ(script("REGEN\n", "one.dxf same.dxf").errors,
              "drafthost: same.dxf: is the drawing that one.dxf names already; work on them in two "
              "runs\n");
    std::filesystem::copy("three.dxf", "one.bak");
    const Result backup = script("REGEN\n", "one.dxf one.bak");
    EXPECT_EQ(backup.status, 2);
    EXPECT_EQ(backup.errors,
              "drafthost: one.bak: is a drawing of this run, and the backup of one.dxf would "
              "replace it; work on them in two runs\n");
    EXPECT_TRUE(holds(script("QSAVE\n", "one.dxf").output,
                      "one.dxf had other names (hard links); they keep what it held."));
}

TEST_F(BatchTest, ReadingManyGivesOneDocument) {
    const Result check = drafthost("--check --json -j 2 bad.dxf one.dxf three.dxf");
    EXPECT_EQ(check.status, 3);
    EXPECT_EQ(
        check.output,
        "[\n{\n  \"file\": \"bad.dxf\",\n  \"error\": \"bad.dxf:1: \\\"junk\\\" is no group code; "
        "this is not a DXF drawing\",\n  \"sound\": false,\n  \"findings\": []\n},\n"
        "{\n  \"file\": \"one.dxf\",\n  \"error\": null,\n  \"sound\": true,\n  \"findings\": "
        "[]\n},\n"
        "{\n  \"file\": \"three.dxf\",\n  \"error\": null,\n  \"sound\": true,\n  \"findings\": "
        "[]\n}\n"
        "]\n");
    // What a reader of the document asks for is there in every drawing.
    const std::string listed = drafthost("--groups --json bad.dxf one.dxf").output;
    const std::string empty = "\"groups\": [],\n  \"strays\": []\n}";
    EXPECT_NE(listed.find(empty), listed.rfind(empty)) << listed;
    const Result groups = drafthost("--groups -q one.dxf bad.dxf three.dxf");
    EXPECT_EQ(groups.output, "");
    EXPECT_EQ(groups.errors.substr(groups.errors.find('\n') + 1),
              "drafthost: 3 drawings, 1 failed\n");
}

TEST_F(BatchTest, GroupsByLayerGoToTheirSubfolders) {
    for (const std::string folder : {"in/a b", "in/c"}) {
        std::filesystem::create_directories(folder);
        std::filesystem::copy(SAMPLES_FOLDER "/plan.dxf", folder + "/p.dxf");
    }
    const std::string files = "\"in/a b/p.dxf\" bad.dxf in/c/p.dxf";
    const Result run = drafthost(
        "--make-groups layer --only \"W*,n[~a]tes\" --min 4 -j 2 --output-dir out " + files);
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.errors,
              "drafthost: bad.dxf:1: \"junk\" is no group code; this is not a DXF drawing\n"
              "drafthost: 3 drawings, 1 failed\n");
    EXPECT_EQ(run.output.substr(0, run.output.find("in/c")),
              "in/a b/p.dxf: layer NOTES: 3 entities; no group\n"
              "in/a b/p.dxf: layer WALLS: 10 entities; one group of 10\n"
              "in/a b/p.dxf: 1 group made\n");
    const std::string same = "--make-groups layer -q --output-dir out --base ";
    EXPECT_EQ(drafthost(same + "in in/c/p.dxf").status, 0);
    EXPECT_TRUE(std::filesystem::exists("out/c/p.dxf"));
    EXPECT_EQ(drafthost(same + "\"in/a b\" in/c/p.dxf").errors,
              "drafthost: in/c/p.dxf: does not stand below --base in/a b\n");
    const Result layers = drafthost("--layers \"out/in/a b/p.dxf\" out/in/c/p.dxf");
    EXPECT_TRUE(holds(layers.output, "p.dxf: layer WALLS: 10 entities, 10 in groups\n"));
    // What is in a group stays in it; over the drawing itself only a change is written.
    const Result again = drafthost("--make-groups color --only 8 \"out/in/a b/p.dxf\"");
    EXPECT_EQ(again.output,
              "out/in/a b/p.dxf: color 8: 5 entities; one group of 5\n"
              "out/in/a b/p.dxf: 1 group made\n");
    std::filesystem::remove("out/in/a b/p.bak");
    EXPECT_EQ(drafthost("--make-groups block --only none \"out/in/a b/p.dxf\"").status, 0);
    EXPECT_FALSE(std::filesystem::exists("out/in/a b/p.bak"));
    EXPECT_EQ(drafthost("--groups -q \"out/in/a b/p.dxf\"").output, "");
}

}  // namespace
