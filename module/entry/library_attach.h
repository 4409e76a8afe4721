// The library's own attach and detach notifications.
#pragma once

#include "platform.h"

/// Instance handle of this library; null before it is attached to a process.
HINSTANCE moduleInstance();
