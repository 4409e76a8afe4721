// Runs one command at a time, with its notifications, pick-first handling and accounting.
#include "host/editor/run/command_runner.h"

#include <exception>
#include <map>

#include "host/control/effects.h"
#include "host/control/guarded_call.h"
#include "host/editor/run/command_names.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/selection/pickfirst.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/current_drawing.h"
#include "host/editor/state/notify.h"
#include "host/store/journal.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

std::map<std::wstring, const BuiltinCommand*>& builtins() {
    static std::map<std::wstring, const BuiltinCommand*> instance;
    return instance;
}

struct Resolved {
    std::wstring name;   ///< global name, upper case
    std::wstring typed;  ///< upper case, without prefixes
    Adesk::Int32 flags = 0;
    AcRxFunctionPtr function = nullptr;  ///< of a module's command
    const BuiltinCommand* builtin = nullptr;
};

bool resolveExactly(const std::wstring& name, Resolved& resolved) {
    const std::wstring key = foldCase(name);
    if (const auto command = findModuleCommand(name)) {
        resolved = {foldCase(command->globalName), key, command->flags, command->function, nullptr};
        return true;
    }
    auto found = builtins().find(key);
    if (found == builtins().end()) found = builtins().find(commandBehind(key));
    if (found == builtins().end()) return false;
    resolved = {found->first, key, found->second->flags, nullptr, found->second};
    return true;
}

/// A name with a dash in front can be a command of its own, so the prefixes go one by one.
bool resolve(std::wstring name, Resolved& resolved) {
    for (;;) {
        if (resolveExactly(name, resolved)) return true;
        if (name.empty() || std::wstring(L"_.-").find(name[0]) == std::wstring::npos) return false;
        name.erase(0, 1);
    }
}

CommandStatus runModuleFunction(AcRxFunctionPtr function, const ActiveCommand& now) {
    const std::string where = "command " + toUtf8(now.name);
    if (!guardedCall(where, function)) {
        noteProblem(L"an exception left the module");
        return CommandStatus::Failed;
    }
    return now.cancelled ? CommandStatus::Cancelled : CommandStatus::Done;
}

CommandStatus runBuiltin(const BuiltinCommand& command) {
    try {
        return command.run();
    } catch (const std::exception& error) {
        printLine(std::wstring(command.name) + L" failed: " + fromUtf8(error.what()));
        noteProblem(fromUtf8(error.what()));
    } catch (...) {
        printLine(std::wstring(command.name) + L" failed");
    }
    return CommandStatus::Failed;
}

void notifyEnd(CommandStatus status, const std::wstring& name) {
    if (status == CommandStatus::Done)
        notifyCommandEnded(name);
    else if (status == CommandStatus::Cancelled)
        notifyCommandCancelled(name);
    else
        notifyCommandFailed(name);
}

/// Pick-first handling when a command is over. A set that is left under the use-pick-set flag alone
/// goes only when the command put it there (chosen, after a report from the field).
void tidyPickfirst(const ActiveCommand& now, const std::vector<AcDbObjectId>& atStart) {
    dropErasedFromPickfirst();
    const bool keepsNothingNew =
        (now.flags & ACRX_CMD_USEPICKSET) != 0 && (now.flags & ACRX_CMD_REDRAW) == 0;
    if (keepsNothingNew && pickfirst() != atStart) dropPickfirst();
}

CommandStatus runResolved(const Resolved& command, ActiveCommand& now) {
    notifyCommandWillStart(command.name);
    if ((command.flags & (ACRX_CMD_USEPICKSET | ACRX_CMD_REDRAW)) == 0) dropPickfirst();
    const std::vector<AcDbObjectId> atStart = pickfirst();
    now.inFunction = true;
    const CommandStatus status = command.builtin != nullptr
                                     ? runBuiltin(*command.builtin)
                                     : runModuleFunction(command.function, now);
    now.inFunction = false;
    notifyEnd(status, command.name);
    tidyPickfirst(now, atStart);
    return now.wrongAnswer && status == CommandStatus::Done ? CommandStatus::Failed : status;
}

}  // namespace

void registerBuiltins(const CommandTable& commands) {
    for (const BuiltinCommand& command : commands)
        builtins()[foldCase(command.name)] = &command;
}

std::vector<const BuiltinCommand*> builtinCommands() {
    std::vector<const BuiltinCommand*> all;
    for (const auto& entry : builtins())
        all.push_back(entry.second);
    return all;
}

CommandStatus runCommand(const std::wstring& typedName) {
    Resolved command;
    if (!resolve(typedName, command)) return CommandStatus::Unknown;
    if (const std::wstring running = activeCommand(); !running.empty()) {
        printProblem(command.name + L" cannot start while " + running + L" runs.");
        return CommandStatus::Failed;
    }
    if (command.builtin == nullptr && currentStore() == nullptr) {
        printProblem(command.name + L" needs an open drawing.");
        return CommandStatus::Failed;
    }
    if (command.builtin != nullptr && command.builtin->runsCommands)
        return runBuiltin(*command.builtin);
    ActiveCommand now;
    now.name = command.name;
    now.typed = command.typed;
    now.flags = command.flags;
    setActiveCommand(&now);
    Store* const store = currentStore();
    if (store != nullptr) store->journal().begin(command.name);
    const CommandStatus status = runResolved(command, now);
    setActiveCommand(nullptr);
    idle();
    if (store != nullptr) store->journal().end();
    if (now.afterwards) now.afterwards();
    return status;
}

}  // namespace host
