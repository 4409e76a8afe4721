// The program from end to end: options, exit statuses and whole messages.
#include "program_fixture.h"

namespace {

TEST_F(ProgramTest, WrongUse) {
    const std::pair<const char*, const char*> cases[] = {
        {"--nonsense", "The following argument was not expected: --nonsense"},
        {"--set PICKADD", "--set: needs NAME=VALUE, not \"PICKADD\""},
        {"--registry A=4294967296", "--registry: needs a number from 0 to 4294967295 behind NAME="},
        {"/i", "/i needs a drawing"},
        {"--no-module -m a.arx", "--module and --no-module exclude each other"},
        {"a.dxf b.dxf",
         "several drawings need --script, --make-groups, --repair, --check, --groups or --layers"},
        {"\"\"", "drawing.dxf: the name is empty"},
        {"--check", "--check needs at least one file"},
        {"--check a.dxf -s b", "--check only reads drawings: it takes no script and no module"},
        {"--json a.dxf", "--json belongs to --check, --groups and --layers"},
        {"--output-dir out a.dxf", "--output-dir belongs to --script, --make-groups and --repair"},
        {"--make-groups name a.dxf", "--make-groups: takes layer, block or color, not \"name\""},
        {"--picture a.svg a.dxf b.dxf",
         "--picture takes one drawing, not also \"b.dxf\"; for many name a folder with / at its "
         "end"},
        {"--picture a.dxf b.dxf",
         "--picture needs a name that ends in .svg, a folder with / at its end, or -, not "
         "\"a.dxf\""},
        {"--picture a.svg --window 0,0,1,0 a.dxf",
         "--window needs two corners of a box that is not empty"},
        {"--layer A a.dxf", "--space, --layer, --group and --window belong to --picture"},
        {"--picture a.svg --check a.dxf", "--check and --picture are runs of their own"},
    };
    for (const auto& [arguments, complaint] : cases) {
        const Result run = drafthost(arguments);
        EXPECT_EQ(run.status, 2) << arguments;
        EXPECT_EQ(run.errors, "drafthost: " + std::string(complaint) +
                                  "; drafthost --help lists the options\n");
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(ProgramTest, HelpAndVersion) {
    const Result help = drafthost("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(holds(help.output, "\nUsage: drafthost [OPTIONS] [drawing.dxf...]\n"));
    EXPECT_TRUE(holds(help.output, "\n  QSAVE        saves the drawing under its name\n"));
    EXPECT_EQ(drafthost("--version").output, "drafthost 1.0.0\n");
}

TEST_F(ProgramTest, AScriptDrawsAndSaves) {
    write("plan.scr", "; three lines\r\nLINE 0,0 1,0 1,1 C\r\nSAVEAS \"a b.dxf\"\r\n");
    const Result run = drafthost("--no-module /s plan.scr");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_TRUE(holds(run.output, "\nCommand: LINE\nSpecify first point: 0,0\n"));
    EXPECT_EQ(drafthost("--check \"a b.dxf\"").output, "a b.dxf: sound\n");
    // PICK 0.5,0 and PICKED in UTF-16, as editors of Windows write it.
    std::string script = "\xFF\xFE";
    for (const char c : std::string("PICK 0.5,0\nPICKED\n"))
        script.append({c, 0});
    const Result list = drafthost("--no-module -s - /i \"a b.dxf\"", script);
    EXPECT_TRUE(holds(list.output, " LINE\n"));
}

TEST_F(ProgramTest, GroupsAreListedAndDrawn) {
    const std::string make = "LINE 0,0 1,0\n\nLINE 0,1 1,1\n\nVelmoGROUPMAKE ALL\n\n";
    ASSERT_EQ(drafthost("-s -", make + "SAVEAS whole.dxf\nGROUPLIST\n").status, 0);
    const Result whole = drafthost("--groups whole.dxf");
    EXPECT_EQ(whole.status, 0);
    EXPECT_TRUE(holds(whole.output, ": whole, counts 2; holds 2 LINE"));
    // Saved without the module, so that nobody repairs; with it, the repair is told.
    const std::string off = "PICK 0.5,1\nERASE\nSAVEAS short.dxf\n";
    ASSERT_EQ(drafthost("--no-module -s - whole.dxf", off).status, 0);
    const Result both = drafthost("--groups --json whole.dxf short.dxf");
    EXPECT_EQ(both.status, 5);
    EXPECT_TRUE(holds(both.output, "\"state\": \"short\""));
    EXPECT_TRUE(holds(drafthost("short", "REGEN\n").errors, ": REGEN lowered the count of group "));
    const Result told = drafthost("short", "QSAVE\nGROUPLIST\nPICTURE a\n");
    EXPECT_TRUE(holds(told.errors, "short.dxf: the save lowered the count of group "));
    EXPECT_TRUE(holds(told.output, "\nthe save lowered"));
    ASSERT_EQ(drafthost("--picture b.svg short.dxf").status, 0);
    EXPECT_EQ(contentOf("a.svg"), contentOf("b.svg"));
    EXPECT_EQ(drafthost("--picture nowhere/b.svg short.dxf").status, 4);
    const Result layout = drafthost("--picture b.svg --space Sheet short.dxf");
    EXPECT_EQ(layout.status, 2);
    EXPECT_EQ(
        layout.errors.rfind("drafthost: short.dxf: no layout is called \"Sheet\"; there are", 0),
        0u);
}

TEST_F(ProgramTest, RepairTakesAwayWhatItCanAndTellsTheRest) {
    const std::string make = "LINE 0,0 1,0\n\nLINE 0,1 1,1\n\nVelmoGROUPMAKE ALL\n\nSAVEAS a\n";
    ASSERT_EQ(drafthost("", make).status, 0);
    const std::string list = drafthost("--groups a").output;
    const std::size_t end = list.find(" to ") + 4;
    const std::string erase =
        "ERASE (handent \"" + list.substr(end, list.find(' ', end) - end) + "\")\n\n";
    ASSERT_EQ(drafthost("--no-module a", erase + "QSAVE\nSAVEAS b\n").status, 0) << list;
    const Result run = drafthost("--repair a");
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output.rfind("a.dxf: took away stray begin marker ", 0), 0u) << run.output;
    EXPECT_EQ(drafthost("--groups a").output, "a.dxf: no groups\n");
    std::filesystem::remove("a.bak");
    EXPECT_EQ(drafthost("--repair a").output, "");
    EXPECT_FALSE(std::filesystem::exists("a.bak")) << "it was written without a change";
    std::string text = contentOf("b.dxf");
    const std::size_t flags =
        text.find("\n 70\n0\n", text.find("AcDbLayerTableRecord\n  2\nVELMO"));
    ASSERT_NE(flags, std::string::npos);
    write("b.dxf", text.replace(flags, 7, "\n 70\n4\n"));
    const Result left = drafthost("--repair -q --output-dir out b");
    EXPECT_EQ(left.status, 5);
    EXPECT_EQ(left.output.rfind("b.dxf: left: stray begin marker ", 0), 0u) << left.output;
    EXPECT_TRUE(std::filesystem::exists("out/b.dxf"));
}

TEST_F(ProgramTest, PicturesReplaceNothingButPictures) {
    ASSERT_EQ(script("LINE 0,0 1,1\n\nSAVEAS a.dxf\nSAVEAS b.dxf\nPICTURE b.svg\n").status, 0);
    const std::string drawing = contentOf("a.dxf"), picture = contentOf("b.svg");
    write("own.svg", drawing);
    const struct {
        const char* arguments;
        int status;
        const char* complaint;
    } cases[] = {
        {"--picture out/ a.dxf b.dxf", 0, "2 drawings, none failed"},
        {"--picture out/ a.dxf ./A.DXF", 2,
         "out/A.svg: both a.dxf and ./A.DXF would go there; work on them in two runs"},
        {"--picture own.svg own.svg", 4,
         "own.svg: the picture cannot be written: is a drawing that is in use"},
        {"--picture out.svg a.dxf", 4, "out.svg: the picture cannot be written: Is a directory"},
    };
    std::filesystem::create_directory("out.svg");
    for (const auto& each : cases) {
        const Result run = drafthost(each.arguments);
        EXPECT_EQ(run.status, each.status) << each.arguments;
        EXPECT_EQ(run.errors, "drafthost: " + std::string(each.complaint) + "\n");
    }
    EXPECT_EQ(contentOf("out/b.svg"), picture);
    EXPECT_EQ(drafthost("--picture out/ --group 2 b.dxf").errors,
              "drafthost: b.dxf: no group has the number 2; Model has 0\n");
    EXPECT_FALSE(holds(drafthost("--picture - --window 5,5,9,-9 b.dxf").output, "<title>"));
    EXPECT_EQ(drafthost("--picture - b.dxf").output, picture);
    EXPECT_TRUE(holds(script("PICTURE own\n", "own.svg").output, "is a drawing that is in use"));
    EXPECT_EQ(script("PICTURE a.dxf\n", "b.dxf").status, 1);
    EXPECT_EQ(contentOf("own.svg") + contentOf("a.dxf"), drawing + drawing);
}

TEST_F(ProgramTest, FilesThatCannotBeRead) {
    EXPECT_EQ(drafthost("--no-module .").status, 3);
    Result run = drafthost("-s nowhere.scr");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.errors,
              "drafthost: nowhere.scr: the script cannot be read: No such file or directory\n");
    EXPECT_EQ(drafthost("-s .").errors, "drafthost: .: a directory, not a script\n");
    run = drafthost("-m nowhere.arx");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "drafthost: nowhere.arx: no such file\n");
}

TEST_F(ProgramTest, CheckTellsDamageAndChangesNothing) {
    script("LINE 0,0 1,1\n\nSAVEAS good.dxf\n");
    std::string text = contentOf("good.dxf");
    const std::size_t layer = text.rfind("\n  8\n0\n", text.find("AcDbLine\n"));
    ASSERT_NE(layer, std::string::npos);
    const std::size_t names = text.find("  0\nTABLE\n  2\nAPPID\n");
    const std::size_t behind = text.find("  0\nTABLE\n", names + 1);
    ASSERT_NE(behind, std::string::npos);
    // What loading supplies was missing.
    write("nameless.dxf", text.substr(0, names) + text.substr(behind));
    EXPECT_EQ(drafthost("--check nameless.dxf").status, 5);
    write("noted.dxf", text.substr(0, layer) + "\n  8\nnone\n" + text.substr(layer + 7));
    const Result noted = drafthost("--check noted.dxf");
    EXPECT_EQ(noted.status, 0);
    EXPECT_TRUE(holds(noted.output, "noted.dxf: note: LINE "));
    text.replace(layer, 7, "\n  8\n0\n  6\nnone\n");
    write("bad.dxf", text);
    const Result run = drafthost("--check good.dxf bad.dxf");
    EXPECT_EQ(run.status, 5);
    EXPECT_TRUE(holds(run.output, "bad.dxf: damaged\n"));
    EXPECT_EQ(contentOf("bad.dxf"), text);
    EXPECT_EQ(script("QSAVE\nQSAVE\n", "--output-dir out bad.dxf good.dxf").errors,
              "drafthost: bad.dxf: damaged before: 1 finding, see --check\ndrafthost: 2 drawings, "
              "none failed\n");
    EXPECT_EQ(script("AUDIT\n", "bad.dxf").status, 1);
}

TEST_F(ProgramTest, NamesOfADrawingDoNotSteerTheTerminal) {
    ASSERT_EQ(script("POINT 1,1\nSAVEAS a.dxf\n").status, 0);
    std::string text = contentOf("a.dxf");
    const std::size_t layer = text.find("\n  8\n0\n", text.find("\nPOINT\n"));
    ASSERT_NE(layer, std::string::npos);
    write("a.dxf", text.replace(layer, 7, "\n  8\n\x1b[5m\\U+009B\n"));
    EXPECT_TRUE(holds(script("LIST ALL\n\n", "a.dxf").output, "POINT Layer: \"?[5m?\""));
}

TEST_F(ProgramTest, VariablesAndMenuGroups) {
    const Result run = script("SETVAR PICKADD \n", "--set pickadd=0 --menu Tools");
    EXPECT_TRUE(holds(run.output, "new value for PICKADD <0>: "));
    const Result wrong = script("", "--set NOTHING=1");
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.errors.rfind("drafthost: --set NOTHING=1: ", 0), 0u);
}

TEST_F(ProgramTest, FaultsOfTheModuleAreToldAndCount) {
    const std::string module = "-m \"" PROBE_FILE "\" -s -";
    EXPECT_EQ(drafthost(module, "(ProbeTypes 1)\n").status, 0);
    const Result run = drafthost(module, "(ProbeLeaks)\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors.rfind("drafthost: module fault: after (ProbeLeaks): 1 result buffer(s) "
                               "not released",
                               0),
              0u);
}

}  // namespace
