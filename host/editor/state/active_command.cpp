// The command in progress, as prompts, selection and notifications see it.
#include "host/editor/state/active_command.h"

#include <utility>

#include "host/control/effects.h"

namespace host {
namespace {

ActiveCommand* running = nullptr;
bool printed = false;  ///< the noted problem

std::wstring& problem() {
    static std::wstring text;
    return text;
}

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

void noteProblem(const std::wstring& why) {
    if (!problem().empty()) return;
    problem() = why;
    printed = false;
}

std::wstring takeProblem() {
    std::wstring why = std::exchange(problem(), {});
    if (!why.empty() && why.back() == L'.') why.pop_back();
    return why;
}

void printProblem(const std::wstring& why) {
    printLine(why);
    if (!problem().empty()) return;
    problem() = why;
    printed = true;
}

bool problemWasPrinted() { return printed; }

}  // namespace host
