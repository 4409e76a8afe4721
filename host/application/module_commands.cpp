// ARX: loading, unloading and listing applications.
#include "host/application/session_impl.h"
#include "host/control/effects.h"
#include "host/editor/dialogue/input.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

CommandStatus listModules() {
    const Modules& modules = currentSession()->impl().modules;
    for (const auto& module : modules.all()) {
        printLine(fromUtf8(module->path) + (module->locked ? L" (locked)" : L""));
    }
    if (modules.all().empty()) printLine(L"No application is loaded.");
    return CommandStatus::Done;
}

CommandStatus runArx() {
    Session::Impl& session = currentSession()->impl();
    const Answer option = prompt(L"\nEnter an option [?/Load/Unload]: ");
    if (option.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (option.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    const std::wstring word = foldCase(option.text);
    if (word == L"?" || word == L"LIST") return listModules();
    const bool load = word == L"L" || word == L"LOAD";
    if (!load && word != L"U" && word != L"UNLOAD") {
        return session.fail({toUtf8(option.text) + " is no option: ? lists, L loads, U unloads"});
    }
    const Answer file = prompt(L"\nApplication file: ");
    if (file.kind == Answer::Kind::Enter) return CommandStatus::Done;
    if (file.kind != Answer::Kind::Text) return CommandStatus::Cancelled;
    const std::string name = withHome(toUtf8(file.text));
    print(L"\n");  // the application prints where the cursor is
    const Outcome outcome = load ? session.modules.load(name) : session.modules.unload(name);
    return outcome ? CommandStatus::Done : session.fail(outcome);
}

}  // namespace

const CommandTable kModuleCommands = {
    {L"ARX", 0, runArx, L"applications: ? lists, L loads a file, U unloads one by its name"},
};

}  // namespace host
