// LISP functions of applications: definitions, arguments, values and errors.
#include "session_fixture.h"

#include "host/editor/state/active_command.h"
#include "host/objectarx/lisp_functions.h"

namespace {

class LispTest : public SessionTest {
  protected:
    LispTest() {
        session->newDrawing();
        session->modules.load(PROBE_FILE);
        shown();
    }
    /// What a call prints.
    std::string call(const std::wstring& expression) {
        session->callLisp(expression);
        return shown() + toUtf8(takeProblem());
    }
};

TEST_F(LispTest, ArgumentsArriveByType) {
    EXPECT_EQ(call(L"(ProbeTypes)"), "types:\n");
    EXPECT_EQ(call(L"(probetypes \"a b\" 7 70000 1.5 '(1 2) (list 1 2 3.0) nil T)"),
              "types: 5005 5003 5010 5001 5002 5009 5019 5021\n");
}

TEST_F(LispTest, WithoutADirectFunctionTheMessageIsSent) {
    EXPECT_EQ(call(L"(ProbeMessage 1)"), "<5 Drawing1.dxf>code 2\nnil");
}

TEST_F(LispTest, WrongCalls) {
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"(Nothing)", "no LISP function Nothing is defined in this drawing"},
        {L"(ProbeFails)", "(ProbeFails) reported a LISP error"},
        {L"(ProbeTypes", "(ProbeTypes: a closing bracket is missing"},
        {L"(ProbeTypes) 1", "(ProbeTypes) 1: there is text behind the closing bracket"},
        {L"()", "(): the name of a function is missing"},
        {L"(ProbeTypes \"a)", "(ProbeTypes \"a): the string has no closing quote"},
        {L"(ProbeTypes x)", "(ProbeTypes x): x is no string, number, point, nil or T"},
        {L"(ProbeTypes 99999999999)",
         "(ProbeTypes 99999999999): the integer 99999999999 is too large"},
        {L"(ProbeTypes (1 a))",
         "(ProbeTypes (1 a)): a list argument must be a point of two or three numbers"},
        {L"(ProbeTypes (handent \"FFFF\"))",
         "(ProbeTypes (handent \"FFFF\")): no object has the handle FFFF"},
    };
    for (const auto& [text, answer] : cases)
        EXPECT_EQ(call(text), answer);
}

TEST_F(LispTest, DefinitionsBelongToOneDrawing) {
    session->newDrawing();
    EXPECT_EQ(acedUndef(L"PROBETYPES", 1), RTNORM);
    EXPECT_EQ(acedUndef(L"PROBETYPES", 1), RTERROR);
    EXPECT_EQ(session->callLisp(L"(ProbeTypes)"), CommandStatus::Unknown);
    session->activate(*session->documents.at(0));
    EXPECT_EQ(session->callLisp(L"(ProbeTypes)"), CommandStatus::Done);
}

TEST_F(LispTest, OutsideACallThereIsNothingToAskFor) {
    EXPECT_EQ(acedGetArgs(), nullptr);
    EXPECT_EQ(acedGetFunCode(), RTERROR);
    EXPECT_EQ(acedRetVoid(), RTERROR);
    EXPECT_EQ(acedDefun(L"", 1), 0);
    EXPECT_EQ(acedDefun(L"Much", 32768), 0);
    EXPECT_EQ(acedRegFunc([] { return 1; }, 77), RTERROR);
}

}  // namespace
