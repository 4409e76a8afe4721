// The boundary to the host, which knows no exceptions.
#pragma once

/// Runs what the host asked for, and throws nothing. The module throws nothing itself; when memory
/// runs out, what was done until then stays, everything that was open is closed, and the host goes
/// on.
template <typename Work>
void withinBoundary(Work work) {
    try {
        work();
    } catch (...) {  // MFC throws pointers
    }
}
