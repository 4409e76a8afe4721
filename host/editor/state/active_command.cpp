// The command in progress, as prompts, selection and notifications see it.
#include "host/editor/state/active_command.h"

namespace host {
namespace {

ActiveCommand* running = nullptr;

}  // namespace

void setActiveCommand(ActiveCommand* command) { running = command; }

bool commandActive() { return running != nullptr && running->inFunction; }

std::wstring activeCommand() { return running == nullptr ? std::wstring() : running->name; }

std::wstring typedCommand() { return running == nullptr ? std::wstring() : running->typed; }

Adesk::Int32 activeCommandFlags() { return running == nullptr ? 0 : running->flags; }

void afterCommand(std::function<void()> action) {
    if (running == nullptr) return action();
    running->afterwards = std::move(action);
}

void noteCancelled() {
    if (running != nullptr) running->cancelled = true;
}

void noteWrongAnswer() {
    if (running != nullptr) running->wrongAnswer = true;
}

}  // namespace host
