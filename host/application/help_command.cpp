// HELP: the commands with what each asks for, the short forms, and what else can be typed.
#include "host/application/session.h"
#include "host/control/effects.h"
#include "host/editor/run/command_names.h"
#include "host/editor/run/command_runner.h"
#include "host/editor/run/command_stack.h"

namespace host {
namespace {

std::wstring aliasText() {
    std::wstring text = L"Short forms:";
    for (const CommandAlias& alias : commandAliases())
        text += std::wstring(L" ") + alias.typed + L"=" + alias.command;
    return text;
}

CommandStatus runHelp() {
    print(L"\n" + commandHelp());
    return CommandStatus::Done;
}

}  // namespace

const CommandTable kHelpCommands = {
    {L"HELP", ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW, runHelp, L"lists the commands"},
};

std::wstring commandHelp() {
    std::wstring text = L"Commands, and what they ask for:\n";
    for (const BuiltinCommand* command : builtinCommands()) {
        std::wstring name = command->name;
        name.resize(std::max<std::size_t>(name.size(), 11), L' ');
        text += L"  " + name + L"  " + command->help + L"\n";
    }
    std::wstring ofModules;
    for (const RegisteredCommand& command : registeredCommands())
        ofModules += L" " + command.globalName;
    if (!ofModules.empty()) text += L"Commands of modules:" + ofModules + L"\n";
    return text + aliasText() +
           L"\nEnter repeats the last command. The name of a system variable shows and sets it.\n"
           L"A point is x,y or x,y,z or distance<angle; @ before it counts from the point before.\n"
           L"Gestures at the empty prompt: PICK selection, UNPICK selection, PICK NONE, PICKED,\n"
           L"SWITCH drawing (as Ctrl+Tab: number or name).\n"
           L"A selection is a point, W or C and two points, ALL, L, P, (handent \"2A\") or\n"
           L"(ssget \"X\" '((0 . \"LINE\") (8 . \"WALLS*\"))).\n"
           L"(Name args) calls a LISP function of a module.";
}

}  // namespace host
