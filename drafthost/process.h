// Ctrl+C, and a process of its own for each drawing, as the system has them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

/// From here on Ctrl+C asks the program to stop, and so do SIGTERM and SIGHUP where the system has
/// them; a second Ctrl+C ends it. A SIGHUP that was ignored stays so.
void catchInterrupts();
/// True once Ctrl+C was pressed or such a signal came.
bool interruptRequested();
/// The number of that signal, other than Ctrl+C, or 0.
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
