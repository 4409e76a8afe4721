// ARX: loading, unloading and listing applications.
#include "host/application/session.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

CommandStatus listModules() {
    const Modules& modules = currentSession()->modules;
    for (const auto& module : modules.all()) {
        printLine(fromUtf8(module->path) + (module->locked ? L" (locked)" : L""));
    }
    if (modules.all().empty()) printLine(L"No application is loaded.");
    return CommandStatus::Done;
}

CommandStatus runArx() {
    Session& session = *currentSession();
    const Answer option = prompt(L"\nEnter an option [?/Load/Unload]: ");
    if (option.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (option.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    const std::wstring word = foldCase(option.text);
    if (word == L"?" || word == L"LIST") return listModules();
    const bool load = word == L"L" || word == L"LOAD";
    if (!load && word != L"U" && word != L"UNLOAD") {
        return session.fail({toUtf8(option.text) + " is no option: ? lists, L loads, U unloads"});
    }
    std::string name;
    const PromptStatus status = promptFile(L"\nApplication file: ", name);
    if (status == PromptStatus::None) return CommandStatus::Done;
    if (status == PromptStatus::Cancel) return CommandStatus::Cancelled;
    print(L"\n");  // the application prints where the cursor is
    const Outcome outcome = load ? session.modules.load(name) : session.modules.unload(name);
    return outcome ? CommandStatus::Done : session.fail(outcome);
}

}  // namespace

const CommandTable kModuleCommands = {
    {L"ARX", 0, runArx, L"applications: ? lists, L loads a file, U unloads one by its name"},
};

}  // namespace host
