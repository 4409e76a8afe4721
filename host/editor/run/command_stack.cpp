// The stack of commands that modules registered, group by group.
#include "host/objectarx/command_stack.h"

#include <algorithm>

#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/editor/run/command_stack.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

struct CommandGroup {
    std::wstring name;
    std::vector<RegisteredCommand> commands;
};

std::vector<CommandGroup>& groups() {
    static std::vector<CommandGroup> instance;
    return instance;
}

std::vector<CommandGroup>::iterator findGroup(const std::wstring& name) {
    return std::find_if(groups().begin(), groups().end(), [&](const CommandGroup& group) {
        return foldCase(group.name) == foldCase(name);
    });
}

}  // namespace

std::optional<RegisteredCommand> findModuleCommand(const std::wstring& name) {
    const std::wstring key = foldCase(name);
    for (const CommandGroup& group : groups()) {
        for (const RegisteredCommand& command : group.commands) {
            if (foldCase(command.globalName) == key || foldCase(command.localName) == key)
                return command;
        }
    }
    return std::nullopt;
}

std::vector<RegisteredCommand> registeredCommands() {
    std::vector<RegisteredCommand> all;
    for (const CommandGroup& group : groups())
        all.insert(all.end(), group.commands.begin(), group.commands.end());
    return all;
}

std::vector<std::wstring> removeCommandsOf(const std::function<bool(const void*)>& isInLibrary) {
    std::vector<std::wstring> removed;
    const auto goes = [&](const RegisteredCommand& command) {
        if (!isInLibrary(reinterpret_cast<const void*>(command.function))) return false;
        removed.push_back(command.globalName);
        return true;
    };
    for (CommandGroup& group : groups()) {
        auto& all = group.commands;
        all.erase(std::remove_if(all.begin(), all.end(), goes), all.end());
    }
    return removed;
}

void clearModuleCommands() { groups().clear(); }

}  // namespace host

using namespace host;

namespace {

std::wstring nameOrNone(const ACHAR* text) { return text != nullptr ? text : L""; }

}  // namespace

Acad::ErrorStatus AcEdCommandStack::addCommand(const ACHAR* group, const ACHAR* globalName,
                                               const ACHAR* localName, Adesk::Int32 flags,
                                               AcRxFunctionPtr function, AcEdUIContext*, int,
                                               HINSTANCE__*, AcEdCommand** command) {
    if (callFails("AcEdCommandStack::addCommand")) return Acad::eInvalidInput;
    recordEffect(EffectKind::Registration, L"addCommand " + nameOrNone(globalName));
    const bool complete = group != nullptr && globalName != nullptr && function != nullptr;
    if (!complete || *group == 0 || *globalName == 0) return Acad::eInvalidInput;
    if (localName == nullptr || *localName == 0) localName = globalName;
    auto present = findGroup(group);
    if (present == groups().end()) present = groups().insert(present, {group, {}});
    for (const RegisteredCommand& other : present->commands) {
        if (foldCase(other.globalName) == foldCase(globalName) ||
            foldCase(other.localName) == foldCase(localName))
            return Acad::eDuplicateKey;
    }
    present->commands.push_back({group, globalName, localName, flags, function});
    if (command != nullptr) *command = nullptr;
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const ACHAR* group) {
    if (callFails("AcEdCommandStack::removeGroup")) return Acad::eInvalidInput;
    recordEffect(EffectKind::Registration, L"removeGroup " + nameOrNone(group));
    if (group == nullptr) return Acad::eInvalidInput;
    const auto found = findGroup(group);
    if (found == groups().end()) return Acad::eKeyNotFound;
    groups().erase(found);
    return Acad::eOk;
}

AcEdCommandStack* acedRegCmdsPtr() {
    static AcEdCommandStack stack;
    return &stack;
}
