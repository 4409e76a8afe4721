// Exit statuses of the program, and the outcome of what can fail in a session.
#pragma once

#include <string>

namespace host {

enum ExitStatus {
    kDone = 0,
    kFailed = 1,  ///< a command failed or was unknown, or the accounting found a fault
    kUsage = 2,
    kUnreadable = 3,     ///< a drawing cannot be read
    kUnwritable = 4,     ///< a drawing or picture cannot be written
    kDamaged = 5,        ///< the check found damage, or a group is not whole
    kInterrupted = 130,  ///< Ctrl+C, as shells tell it, or a signal that asks to end
};

/// Outcome of an operation that can fail: empty text means success. `status` is that of a failure.
struct Outcome {
    std::string error;
    ExitStatus status = kFailed;
    explicit operator bool() const { return error.empty(); }
};

}  // namespace host
