// What depends on the system: arguments, signals, and the terminal with its line editing.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/scripting/typed_lines.h"

/// Arguments behind the program's name, as UTF-8.
std::vector<std::string> programArguments(int count, char** values);
/// Folder of the program's own file, as UTF-8 with a separator at its end; empty when unknown.
std::string programFolder();
/// Standard streams as the program wants them: no end by signal when a pipe is closed, bytes as
/// they are.
void prepareStreams();
/// True when a person sits at standard input and output.
bool isInteractive();
bool standardErrorIsTerminal();

/// A person who types lines at a terminal. Esc and Ctrl+C cancel, Ctrl+D ends the input.
class Terminal : public host::TypedLines {
  public:
    /// Gives command-line text on to standard output.
    virtual void print(const std::wstring& text) = 0;
    /// True when Ctrl+C was pressed since the last answer: what is being loaded stops.
    virtual bool stopRequested() const = 0;
};
std::unique_ptr<Terminal> openTerminal();
