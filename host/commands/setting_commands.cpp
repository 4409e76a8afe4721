// SETVAR, REGEN and MENULOAD.
#include <string>

#include "host/commands/commands.h"
#include "host/commands/open_drawing.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/sysvars.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

CommandStatus listVariables() {
    for (const std::wstring& name : sysvarNames()) {
        std::wstring value;
        if (sysvarText(name, value)) printLine(name + L" = " + value);
    }
    return CommandStatus::Done;
}

CommandStatus runSetvar() {
    std::wstring name = typedCommand();  // a variable can be typed as if it were a command
    if (!isSysvar(name)) {
        const Answer named = prompt(L"\nEnter variable name or [?]: ");
        if (named.kind == Answer::Kind::Enter) return CommandStatus::Done;
        if (named.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
        if (named.text == L"?") return listVariables();
        name = foldCase(named.text);
    }
    std::wstring value;
    if (!sysvarText(name, value)) {
        printProblem(L"Unknown variable " + name + L": SETVAR ? lists the known ones.");
        return CommandStatus::Failed;
    }
    if (isReadOnlySysvar(name)) {
        printLine(name + L" = " + value + L" (read only)");
        return CommandStatus::Done;
    }
    const Answer answer = prompt(L"\nEnter new value for " + name + L" <" + value + L">: ");
    if (answer.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (answer.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    std::wstring explanation;
    if (setSysvarText(name, answer.text, explanation)) return CommandStatus::Done;
    printProblem(explanation);
    return CommandStatus::Failed;
}

/// Nothing is displayed here: the command exists for the notifications it causes.
CommandStatus runRegen(Store&) {
    printLine(L"Regenerating model.");
    return CommandStatus::Done;
}

/// A menu group counts as loaded from here on; no menu file is read.
CommandStatus runMenuload() {
    const Answer group = prompt(L"\nEnter name of menu group: ");
    if (group.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (group.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    loadMenuGroup(group.text);
    return CommandStatus::Done;
}

}  // namespace

const CommandTable kSettingCommands = {
    {L"SETVAR", 0, runSetvar, L"shows or sets a system variable: name, value; ? lists all"},
    {L"REGEN", 0, onDrawing<runRegen>, L"regenerates the drawing"},
    {L"MENULOAD", 0, runMenuload, L"makes a menu group count as loaded: name"},
};

}  // namespace host
