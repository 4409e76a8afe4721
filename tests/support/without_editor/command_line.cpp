// The command line for builds of the host that stop below the editor.
#include "host/objectarx/command_line.h"

#include <cstdarg>
#include <string>

#include "host/control/effects.h"
#include "host/windows/windows.h"

int acutPrintf(const ACHAR* format, ...) {
    wchar_t text[4096] = {};
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(text, 4095, format, arguments);
    va_end(arguments);
    host::recordEffect(host::EffectKind::CommandLine, text);
    return RTNORM;
}
