// Running commands: names, flags, notifications, outcomes, accounting.
#include "host/editor/run/command_runner.h"
#include "host/editor/state/active_command.h"

#include <stdexcept>

#include "editor/editor_fixture.h"
#include "host/control/switches.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/selection/pickfirst.h"
#include "host/objectarx/interactive_input.h"

namespace tests {
namespace {

using host::CommandStatus;
using host::runCommand;

std::function<void()> body;  ///< what the registered command does
int runs = 0;

void function() {
    ++runs;
    if (body) body();
}

CommandStatus builtin() {
    if (body) body();
    return CommandStatus::Done;
}

/// What a module reads of an implied selection that is not there.
const std::string kNotImplied = std::to_string(RTERROR);

class CommandRunner : public EditorTest {
  protected:
    CommandRunner() {
        body = nullptr;
        runs = 0;
        for (int i = 0; i < 3; ++i)
            add("0 POINT|10 " + std::to_string(i) + "|20 0");
    }
    ~CommandRunner() override { body = nullptr; }

    static Acad::ErrorStatus addCommand(const wchar_t* group, const wchar_t* name,
                                        Adesk::Int32 flags = ACRX_CMD_MODAL) {
        return acedRegCmds->addCommand(group, name, name, flags, &function);
    }
    /// The pick-first set after running a command with those flags on "ab"; notifications follow.
    std::string after(Adesk::Int32 flags) {
        acedRegCmds->removeGroup(L"G");
        addCommand(L"G", L"Cmd", flags);
        state.pickfirst = {entities[0], entities[1]};
        takeNotifications();
        EXPECT_EQ(runCommand(L"CMD"), CommandStatus::Done);
        return letters(host::pickfirst()) + shown(takeNotifications());
    }
    /// "S" start, "E" ended, "C" cancelled, "F" failed, "p" pick-first set changed.
    static std::string shown(const std::vector<std::wstring>& notifications) {
        std::string text = ":";
        for (const std::wstring& each : notifications) {
            const std::wstring event = each.substr(0, each.find(L' '));
            text += event == L"commandWillStart"   ? 'S'
                    : event == L"commandEnded"     ? 'E'
                    : event == L"commandCancelled" ? 'C'
                    : event == L"commandFailed"    ? 'F'
                                                   : 'p';
        }
        return text;
    }
};

TEST_F(CommandRunner, NamesAreFoundInAnyFormAndOrder) {
    EXPECT_EQ(addCommand(L"First", L"MakeIt"), Acad::eOk);
    EXPECT_EQ(addCommand(L"FIRST", L"MAKEIT"), Acad::eDuplicateKey);
    EXPECT_EQ(acedRegCmds->addCommand(L"Second", L"MakeIt", L"Mache", 0, [] { runs += 100; }),
              Acad::eOk);
    for (const wchar_t* typed : {L"makeit", L"_MAKEIT", L"._MakeIt", L"-makeit"})
        EXPECT_EQ(runCommand(typed), CommandStatus::Done);
    EXPECT_EQ(runs, 4);
    EXPECT_EQ(runCommand(L"mache"), CommandStatus::Done);
    EXPECT_EQ(runs, 104) << "the local name of the second group";
    EXPECT_EQ(takeNotifications()[0], L"commandWillStart MAKEIT");
    EXPECT_EQ(acedRegCmds->removeGroup(L"first"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeGroup(L"first"), Acad::eKeyNotFound);
    EXPECT_EQ(runCommand(L""), CommandStatus::Unknown);
    EXPECT_EQ(runCommand(L"-"), CommandStatus::Unknown);
    EXPECT_EQ(acedRegCmds->addCommand(L"G", nullptr, nullptr, 0, &function), Acad::eInvalidInput);
    EXPECT_EQ(host::registeredCommands().size(), 1u);
}

TEST_F(CommandRunner, FlagsDecideAboutThePickFirstSet) {
    EXPECT_EQ(after(ACRX_CMD_MODAL), ":SpE");
    EXPECT_EQ(after(ACRX_CMD_USEPICKSET), "ab:SE");
    EXPECT_EQ(after(ACRX_CMD_REDRAW), "ab:SE");
    std::string first, second;
    body = [&] {
        first = get(L"_I");
        second = get(L"_I");
    };
    EXPECT_EQ(after(ACRX_CMD_MODAL) + first, ":SpE" + kNotImplied);
    EXPECT_EQ(after(ACRX_CMD_USEPICKSET) + first + second, ":SpEab" + kNotImplied);
    EXPECT_EQ(after(ACRX_CMD_REDRAW) + first + second, "ab:SEabab");
    EXPECT_EQ(after(ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW) + first + second, "ab:SEabab");
    host::switches().dropNotifiesPickfirst = false;
    EXPECT_EQ(after(ACRX_CMD_MODAL), ":SE");
    EXPECT_EQ(after(ACRX_CMD_USEPICKSET), ":SE");
}

TEST_F(CommandRunner, FlagsDecideAboutSettingIt) {
    int result = 0;
    body = [&] {
        ads_name set;
        acedSSGet(L"L", nullptr, nullptr, nullptr, set);
        result = acedSSSetFirst(set, nullptr);
        acedSSFree(set);
    };
    EXPECT_EQ(after(ACRX_CMD_MODAL), ":SpE");
    EXPECT_EQ(result, RTERROR);
    EXPECT_EQ(after(ACRX_CMD_REDRAW), "c:SpE");
    EXPECT_EQ(result, RTNORM);
    EXPECT_EQ(after(ACRX_CMD_USEPICKSET), ":SpEp") << "gone when the command is over";
    EXPECT_EQ(result, RTNORM);
}

TEST_F(CommandRunner, ErasedMembersLeaveTheSetAtTheEnd) {
    body = [&] { erase(entities[0]); };
    EXPECT_EQ(after(ACRX_CMD_REDRAW), "b:SEp");
}

TEST_F(CommandRunner, OutcomesFollowPromptsAndExceptions) {
    addCommand(L"G", L"ASK");
    body = [] {
        ads_point point;
        acedGetPoint(nullptr, L"\nPoint: ", point);
    };
    answers.left = {L"1,2", L"^", L""};
    EXPECT_EQ(runCommand(L"ask"), CommandStatus::Done);
    EXPECT_EQ(runCommand(L"ask"), CommandStatus::Cancelled);
    EXPECT_EQ(runCommand(L"ask"), CommandStatus::Done);
    EXPECT_EQ(runCommand(L"ask"), CommandStatus::Cancelled) << "the input is over";
    EXPECT_EQ(shown(takeNotifications()), ":SESCSESC");
    body = [] { throw std::runtime_error("oops"); };
    EXPECT_EQ(runCommand(L"ask"), CommandStatus::Failed);
    EXPECT_EQ(shown(takeNotifications()), ":SF");
    EXPECT_EQ(takeFaults()[0], "command ASK: an exception left the module: oops");
    EXPECT_EQ(runCommand(L"nothing"), CommandStatus::Unknown);
    EXPECT_EQ(shown(takeNotifications()), ":");
}

TEST_F(CommandRunner, OneCommandAtATime) {
    addCommand(L"G", L"OUTER");
    CommandStatus nested = CommandStatus::Done;
    body = [&] {
        EXPECT_EQ(host::activeCommand(), L"OUTER");
        EXPECT_TRUE(host::commandActive());
        nested = runCommand(L"OUTER");
    };
    EXPECT_EQ(runCommand(L"outer"), CommandStatus::Done);
    EXPECT_EQ(nested, CommandStatus::Failed);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(host::commandActive());
    EXPECT_EQ(host::activeCommand(), L"");
}

TEST_F(CommandRunner, TheHostsOwnCommandsRunWithoutADrawing) {
    static const host::CommandTable own = {{L"OWN", ACRX_CMD_MODAL, &builtin, L"test"}};
    host::registerBuiltins(own);
    addCommand(L"G", L"OWN2");
    EXPECT_EQ(runCommand(L"own"), CommandStatus::Done);
    host::setCurrentDocumentState(nullptr);
    EXPECT_EQ(runCommand(L"own"), CommandStatus::Done);
    EXPECT_EQ(runCommand(L"own2"), CommandStatus::Failed);
    body = [] { throw 5; };
    EXPECT_EQ(runCommand(L"own"), CommandStatus::Failed);
    EXPECT_EQ(shown(takeNotifications()), ":SE");  // nobody is told without a drawing
}

}  // namespace
}  // namespace tests
