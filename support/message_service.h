// Messages on the host's command line.
#pragma once

/// Formats the text (Microsoft's wide printf rules: "%s" takes wchar_t*) and prints it on the
/// command line, without newlines in front and with exactly one behind, whatever the diagnostics
/// settings. With the time in front it also goes to an attached debugger and, when the log file is
/// enabled, to that.
void messageService(const wchar_t* format, ...);
