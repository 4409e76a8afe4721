// Calling into a module: nothing thrown comes back, and what the call left open is reported.
#pragma once

#include <exception>
#include <string>

#include "host/control/accounting.h"

namespace host {

/// Runs `call` as a call of module code named `where`. True when it returned, false when it threw,
/// which is reported as the module's fault. Either way the accounting follows.
template <typename Call>
bool guardedCall(const std::string& where, Call&& call) {
    const HeldCounts before = heldNow();
    bool returned = true;
    try {
        call();
    } catch (const std::exception& error) {
        returned = false;
        reportModuleFault(where + ": an exception left the module: " + error.what());
    } catch (...) {
        returned = false;
        reportModuleFault(where + ": an exception left the module");
    }
    checkNothingLeaked(before, where);
    return returned;
}

}  // namespace host
