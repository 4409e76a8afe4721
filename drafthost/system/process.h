// The program's process as the system has it: arguments, streams, Ctrl+C, and a process of its own
// for each drawing.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// Arguments behind the program's name, as UTF-8.
std::vector<std::string> programArguments(int count, char** values);
/// Folder of the program's own file, as UTF-8 with a separator at its end; empty when unknown.
std::string programFolder();
/// Standard streams as the program wants them: no end by signal when a pipe is closed, bytes as
/// they are.
void prepareStreams();
/// True when a person sits at standard input and output.
bool isInteractive();
bool standardInputIsTerminal();
bool standardErrorIsTerminal();

/// From here on Ctrl+C asks the program to stop, and so do SIGTERM and SIGHUP where the system has
/// them; a second Ctrl+C ends it. With a person `atPrompt` Ctrl+C cancels alone, and wakes whoever
/// waits for keys. A SIGHUP that was ignored stays so.
void catchInterrupts(bool atPrompt = false);
/// True once Ctrl+C was pressed or such a signal came.
bool interruptRequested();
/// Counts as Ctrl+C; and takes back what was pressed.
void requestInterrupt();
void forgetInterrupts();
/// The number of the signal that asks to end, other than Ctrl+C, or 0.
int endingSignal();

/// What one of several jobs gave.
struct JobResult {
    int status = 0;
    std::string output;  ///< all that it wrote to standard output
    std::string errors;  ///< to standard error; empty where it went there at once
    std::string ending;  ///< how its process ended when it did not come to an end by itself
};

/// Does `work` for each number below `count` and hands over its result, in the order in which they
/// end. `work` gives an exit status and throws nothing. Tells which one was begun last, again and
/// again while it waits.
///
/// Each runs in a process of its own, at most `atATime` at once, so that a crash ends one and
/// nothing is left over for the next. On Windows, which cannot split a process, they run in this
/// one, one after the other. After Ctrl+C none begins any more, and those under way are asked to
/// stop; a second Ctrl+C ends them.
void runJobs(std::size_t count, int atATime, const std::function<int(std::size_t)>& work,
             const std::function<void(std::size_t)>& present,
             const std::function<void(std::size_t, JobResult)>& finished);
