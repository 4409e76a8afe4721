// The program from end to end: options, exit statuses and whole messages.
#include "program_fixture.h"

namespace {

TEST_F(ProgramTest, WrongUse) {
    const struct {
        const char* arguments;
        const char* complaint;
    } cases[] = {
        {"--nonsense", "The following argument was not expected: --nonsense"},
        {"--set PICKADD", "--set: needs NAME=VALUE, not \"PICKADD\""},
        {"--registry A=4294967296", "--registry: needs a number from 0 to 4294967295 behind NAME="},
        {"/i", "/i needs a drawing"},
        {"--no-module -m a.arx", "--module and --no-module exclude each other"},
        {"a.dxf b.dxf", "several drawings need --script, --check or --groups"},
        {"\"\"", "drawing.dxf: the name is empty"},
        {"--check", "--check needs at least one file"},
        {"--check a.dxf -s b", "--check only reads drawings: it takes no script and no module"},
        {"--json a.dxf", "--json belongs to --check and --groups"},
        {"--output-dir out a.dxf", "--output-dir belongs to --script"},
        {"--picture a.svg a.dxf b.dxf", "--picture takes one drawing, not also \"b.dxf\""},
        {"--picture a.svg --check a.dxf", "--check, --groups and --picture are runs of their own"},
    };
    for (const auto& each : cases) {
        const Result run = drafthost(each.arguments);
        EXPECT_EQ(run.status, 2) << each.arguments;
        EXPECT_EQ(run.errors, "drafthost: " + std::string(each.complaint) +
                                  "; drafthost --help lists the options\n");
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(ProgramTest, HelpAndVersion) {
    const Result help = drafthost("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("\nUsage: drafthost [OPTIONS] [drawing.dxf...]\n"),
              std::string::npos);
    EXPECT_NE(help.output.find("\n  QSAVE       saves the drawing under its name\n"),
              std::string::npos);
    EXPECT_EQ(drafthost("--version").output, "drafthost 1.0.0\n");
}

TEST_F(ProgramTest, AScriptDrawsAndSaves) {
    write("plan.scr", "; three lines\r\nLINE 0,0 1,0 1,1 C\r\nSAVEAS \"a b.dxf\"\r\n");
    const Result run = drafthost("--no-module /s plan.scr");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_NE(run.output.find("\nCommand: LINE\nSpecify first point: 0,0\n"), std::string::npos);
    EXPECT_EQ(drafthost("--check \"a b.dxf\"").output, "a b.dxf: sound\n");
    // PICK 0.5,0 and PICKED in UTF-16, as editors of Windows write it.
    std::string script = "\xFF\xFE";
    for (const char c : std::string("PICK 0.5,0\nPICKED\n"))
        script.append({c, 0});
    const Result list = drafthost("--no-module -s - /i \"a b.dxf\"", script);
    EXPECT_NE(list.output.find(" LINE\n"), std::string::npos);
}

TEST_F(ProgramTest, GroupsAreListedAndDrawn) {
    const std::string make = "LINE 0,0 1,0\n\nLINE 0,1 1,1\n\nVelmoGROUPMAKE ALL\n\n";
    ASSERT_EQ(drafthost("-s -", make + "SAVEAS whole.dxf\nGROUPLIST\n").status, 0);
    const Result whole = drafthost("--groups whole.dxf");
    EXPECT_EQ(whole.status, 0);
    EXPECT_NE(whole.output.find(": whole, counts 2; holds 2 LINE"), std::string::npos);
    // Saved without the module, so that nobody repairs; with it, the repair is told.
    const std::string off = "PICK 0.5,1\nERASE\nSAVEAS short.dxf\n";
    ASSERT_EQ(drafthost("--no-module -s - whole.dxf", off).status, 0);
    const Result both = drafthost("--groups --json whole.dxf short.dxf");
    EXPECT_EQ(both.status, 5);
    EXPECT_NE(both.output.find("\"state\": \"short\""), std::string::npos) << both.output;
    const Result told = drafthost("-s - short.dxf", "QSAVE\nGROUPLIST\nPICTURE a\n");
    EXPECT_NE(told.errors.find("short.dxf: the save lowered the count of group "),
              std::string::npos);
    EXPECT_NE(told.output.find("\nthe save lowered"), std::string::npos);
    ASSERT_EQ(drafthost("--picture b.svg short.dxf").status, 0);
    EXPECT_EQ(contentOf("a.svg"), contentOf("b.svg"));
    EXPECT_EQ(drafthost("--picture nowhere/b.svg short.dxf").status, 4);
    const Result layout = drafthost("--picture b.svg --layout Sheet short.dxf");
    EXPECT_EQ(layout.status, 2);
    EXPECT_EQ(
        layout.errors.rfind("drafthost: short.dxf: no layout is called \"Sheet\"; there are", 0),
        0u);
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
    EXPECT_NE(noted.output.find("noted.dxf: note: LINE "), std::string::npos);
    text.replace(layer, 7, "\n  8\n0\n  6\nnone\n");
    write("bad.dxf", text);
    const Result run = drafthost("--check good.dxf bad.dxf");
    EXPECT_EQ(run.status, 5);
    EXPECT_NE(run.output.find("bad.dxf: damaged\n"), std::string::npos);
    EXPECT_EQ(contentOf("bad.dxf"), text);
    EXPECT_EQ(script("AUDIT\n", "bad.dxf").status, 1);
}

TEST_F(ProgramTest, NamesOfADrawingDoNotSteerTheTerminal) {
    ASSERT_EQ(script("POINT 1,1\nSAVEAS a.dxf\n").status, 0);
    std::string text = contentOf("a.dxf");
    const std::size_t layer = text.find("\n  8\n0\n", text.find("\nPOINT\n"));
    ASSERT_NE(layer, std::string::npos);
    write("a.dxf", text.replace(layer, 7, "\n  8\n\x1b[5m\\U+009B\n"));
    EXPECT_NE(script("LIST ALL\n\n", "a.dxf").output.find("POINT Layer: \"?[5m?\""),
              std::string::npos);
}

TEST_F(ProgramTest, VariablesAndMenuGroups) {
    const Result run = script("SETVAR PICKADD \n", "--set pickadd=0 --menu Tools");
    EXPECT_NE(run.output.find("new value for PICKADD <0>: "), std::string::npos);
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
