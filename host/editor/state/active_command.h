// The command in progress, as prompts, selection and notifications see it.
#pragma once

#include <functional>
#include <string>

#include "host/objectarx/adesk_types.h"

namespace host {

/// The command in progress, from the notification of its start to that of its end. Owned by the
/// command runner.
struct ActiveCommand {
    std::wstring name;   ///< global name in upper case
    std::wstring typed;  ///< what was typed for it, upper case: a name, an alias, a variable
    Adesk::Int32 flags = 0;
    bool inFunction = false;
    bool cancelled = false;
    bool wrongAnswer = false;
    std::function<void()> afterwards;
};
/// Sets it; null when none runs any more. The object must live until then.
void setActiveCommand(ActiveCommand* command);

/// True while a command function runs.
bool commandActive();
/// Global name of the running command in upper case, or empty.
std::wstring activeCommand();
/// What was typed for it, in upper case without prefixes, or empty.
std::wstring typedCommand();
/// Flags of the running command, or 0.
Adesk::Int32 activeCommandFlags();
/// Runs an action when the running command is over and its end was notified, or at once when none
/// runs: for what would change the drawing under it. A later action replaces the one before.
void afterCommand(std::function<void()> action);
/// To be called by a prompt that was cancelled.
void noteCancelled();
/// To be called by a prompt that got a wrong answer and cannot ask again: the command's result is
/// Failed, whatever else becomes of it.
void noteWrongAnswer();

/// Notes why what runs at the empty prompt goes wrong, for the one line about it; of several
/// reasons the first stays.
void noteProblem(const std::wstring& why);
/// The noted reason, without a full stop, or empty; it is forgotten.
std::wstring takeProblem();
/// Prints a line that says why the running command fails, and notes it.
void printProblem(const std::wstring& why);
/// True when the reason that takeProblem gives was printed.
bool problemWasPrinted();

}  // namespace host
