// Running commands: the host's own and those that modules registered.
#pragma once

#include <string>
#include <vector>

#include "host/objectarx/adesk_types.h"
#include "host/objectarx/command_stack.h"

namespace host {

/// How a command ended.
enum class CommandStatus { Done, Cancelled, Failed, Unknown };

/// One of the host's own commands.
struct BuiltinCommand {
    const wchar_t* name;  ///< upper case
    Adesk::Int32 flags;   ///< ACRX_CMD_...
    CommandStatus (*run)();
    const wchar_t* help;  ///< one line
    /// It runs other commands, so it is none itself: see runCommand.
    bool runsCommands = false;
};

using CommandTable = std::vector<BuiltinCommand>;

/// Adds own commands; a later one of the same name replaces the earlier. The table must live on.
void registerBuiltins(const CommandTable& commands);
/// All own commands by name, for help texts.
std::vector<const BuiltinCommand*> builtinCommands();

/// Resolves a typed name (any case; a leading "_", "." or "-" is accepted) against the modules'
/// groups in registration order, then the host's own and their aliases, and runs the command with
/// its notifications: commandWillStart, pick-first handling by flags, the function, one of ended,
/// cancelled, failed, then the accounting. A module's command counts as cancelled when a prompt in
/// it was cancelled, else as ended. All it changes in the drawing that is current at its start,
/// reactors included, is one step for undo. Of a command that runs others, those are notified and
/// undone one by one, as if they had been typed. Not while another command runs: Failed. Nothing is
/// thrown.
CommandStatus runCommand(const std::wstring& typedName);

}  // namespace host
