// The script language, and the lines about what goes wrong in a script.
#include "session_fixture.h"

#include <sstream>

#include "host/scripting/script.h"

namespace {

/// Answers of a script: "<text>" each, Enter as "-", the line number behind it.
std::string answersOf(const std::wstring& text) {
    ScriptSource source(text);
    std::string answers;
    while (!source.atEnd()) {
        const Answer answer = source.next({}, InputUnit::Token);
        answers += answer.kind == Answer::Kind::Enter ? "-" : "<" + toUtf8(answer.text) + ">";
        answers += std::to_string(source.line());
    }
    EXPECT_EQ(source.next({}, InputUnit::Token).kind, Answer::Kind::End);
    return answers;
}

TEST(ScriptSource, AnswersAndTheirLines) {
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"", ""},
        {L"LINE 0,0 1,1\n\n", "<LINE>1<0,0>1<1,1>1-2"},
        {L"LINE 0,0  1,1", "<LINE>1<0,0>1-1<1,1>1"},
        {L"A\r\nB\r\n", "<A>1<B>2"},
        {L"\uFEFF; note\nA\n;B\n C", "<A>2-4<C>4"},
        {L"A;B", "<A;B>1"},
        {L"OPEN \"a b.dxf\"\nX", "<OPEN>1<a b.dxf>1<X>2"},
        {L"\"\"\n\n", "<>1-2"},
        {L"\"open\nX", "<open>1<X>2"},
        {L"a\"b c\"d e", "<ab cd>1<e>1"},
        {L"(f \"a)\" (g 1))\n\nX", "<(f \"a)\" (g 1))>1-2<X>3"},
        {L"(f)(g) X", "<(f)>1<(g)>1<X>1"},
        {L"(f\n 1)\nX", "<(f\n 1)>1<X>3"},
        {L"(f \"\\\")\" 1", "<(f \"\\\")\" 1>1"},
    };
    for (const auto& [text, answers] : cases)
        EXPECT_EQ(answersOf(text), answers) << toUtf8(text);
}

TEST(ScriptSource, ALineAnswerKeepsBlanksAndQuotes) {
    ScriptSource source(L"TEXT a \"b\"  c\nREGEN\n");
    EXPECT_EQ(source.next({}, InputUnit::Token).text, L"TEXT");
    EXPECT_EQ(source.next({}, InputUnit::Line).text, L"a \"b\"  c");
    EXPECT_EQ(source.next({}, InputUnit::Token).text, L"REGEN");
    EXPECT_TRUE(source.atEnd());
}

class ScriptTest : public SessionTest {
  protected:
    ScriptTest() { session->newDrawing(); }
};

TEST_F(ScriptTest, CommandsDrawListAndUndo) {
    EXPECT_EQ(problemsOf(L"LINE 0,0 1,0 1,1 C\n_.circle 5,5 2\nTEXT 3,4 2.5 30 Two words\n"), "");
    EXPECT_EQ(entities(), "LINE LINE LINE CIRCLE TEXT");
    clearEffects();
    EXPECT_EQ(problemsOf(L"LIST L\n\nLIST 7,5\n\nLIST 0.5,0\n\nUNDO 2\n"), "");
    const std::string all = shown();
    EXPECT_TRUE(holds(all, "\nTEXT CIRCLE\n")) << "what was undone";
    std::string listed, line;
    for (std::istringstream lines(all); std::getline(lines, line);)
        if (line.rfind("    ", 0) == 0) listed += line.substr(4) + "|";
    EXPECT_EQ(listed,
              "at point X=3.0 Y=4.0 Z=0.0|height 2.5|text Two words|"
              "center point X=5.0 Y=5.0 Z=0.0|radius 2.0|"
              "from point X=0.0 Y=0.0 Z=0.0|to point X=1.0 Y=0.0 Z=0.0|");
    EXPECT_EQ(entities(), "LINE LINE LINE");
}

TEST_F(ScriptTest, WhatGoesWrongIsToldWithItsLine) {
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"; nothing\nNONSENSE\n",
         "plan.scr:2: unknown command \"NONSENSE\"; HELP lists the commands\n"},
        {L"STRETCH\n", "plan.scr:1: unknown command \"STRETCH\"; HELP lists the commands\n"},
        {L"\nLNIE\n",
         "plan.scr:2: unknown command \"LNIE\"; nearest is LINE; HELP lists the commands\n"},
        {L"QSAV\n",
         "plan.scr:1: unknown command \"QSAV\"; nearest is QSAVE; HELP lists the commands\n"},
        {L"UNPASTEX\n",
         "plan.scr:1: unknown command \"UNPASTEX\"; nearest is PASTECLIP; HELP lists the "
         "commands\n"},
        {L"\n(handent \"FFFF\")\n", "plan.scr:2: no object has the handle FFFF in this drawing\n"},
        {L"(Nothing)\n", "plan.scr:1: no LISP function Nothing is defined in this drawing\n"},
        {L"PICK \n",
         "plan.scr:1: PICK failed: a selection is missing: a point, W or C and two "
         "points, ALL, L, P, (handent \"2A\") or NONE\n"},
        {L"PICK W 1,1\n",
         "plan.scr:1: PICK failed: a window takes two corners, for example W 0,0 10,10\n"},
        {L"LINE 0,0 1,1", "plan.scr:1: LINE was cancelled: the input ended inside the command\n"},
        {L"LINE\n0,0\nx\n",
         "plan.scr:3: LINE was cancelled: \"x\" is no point; give x,y or distance<angle, with @ "
         "from the last point\n"},
        {L"\nOPEN nowhere.dxf\n",
         "plan.scr:2: OPEN failed: nowhere.dxf: cannot be read: No such file or "
         "directory; choose a DXF drawing\n"},
    };
    for (const auto& [script, line] : cases)
        EXPECT_EQ(problemsOf(script), line);
    EXPECT_EQ(session->exitStatus, 3);
}

TEST_F(ScriptTest, ShortFormsVariablesAndEnterThatRepeats) {
    EXPECT_EQ(problemsOf(L"\nPO 1,1\n\n2,2\nPICK ALL\n\n3,3\n_pickadd 1\n\n0\nE 3,3\n\nVIEWSIZE\n"),
              "");
    EXPECT_EQ(entities(), "POINT POINT");
    EXPECT_TRUE(holds(shown(), "\nEnter new value for PICKADD <1>: 0\n"));
    EXPECT_EQ(problemsOf(L"?\n"), "");
    const std::string help = shown();
    for (const char* line : {"\n  ZOOM ", " L=LINE ", "\n  QUIT ", "PICK selection"})
        EXPECT_TRUE(holds(help, line)) << line;
}

TEST_F(ScriptTest, GesturesAreNoCommands) {
    session->runScript(L"POINT 1,1\nLINE 0,0 5,0\n\n");
    clearEffects();
    EXPECT_EQ(problemsOf(L"PICK ALL\nUNPICK 1,1\nPICKED\nPICK NONE\n"), "");
    for (const std::wstring& text : effectTexts(EffectKind::Notification))
        EXPECT_EQ(text, L"pickfirstModified");
    EXPECT_TRUE(holds(shown(), " LINE\n"));
    session->runScript(L"PICKED\n");
    EXPECT_TRUE(holds(shown(), "Nothing is picked."));
}

TEST_F(ScriptTest, QuitEndsTheScript) { EXPECT_EQ(problemsOf(L"QUIT\nNONSENSE\n"), ""); }

}  // namespace
