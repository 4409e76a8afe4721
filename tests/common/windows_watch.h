// Watching real Windows: message boxes and standard output become recorded effects.
#pragma once

/// From now on a helper thread records each message box of this process and closes it. The thread
/// that shows the box waits in it meanwhile.
void watchBoxes();
void endWatch();

/// Standard output goes to a file, as Windows' calls see it (the C library's stays); what is
/// written there is recorded when it is collected, at the latest before a box is recorded.
void captureOutput();
void collectOutput();
void endCapture();
