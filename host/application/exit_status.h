// Exit statuses of the program, for what fails in a session too.
#pragma once

namespace host {

enum ExitStatus {
    kDone = 0,
    kFailed = 1,  ///< a command failed or was unknown, or the accounting found a fault
    kUsage = 2,
    kUnreadable = 3,     ///< a drawing cannot be read
    kUnwritable = 4,     ///< a drawing or picture cannot be written
    kDamaged = 5,        ///< the check found damage, or a group is not whole
    kInterrupted = 130,  ///< Ctrl+C, as shells tell it
};

}  // namespace host
