// The terminal, with its line editing.
#pragma once

#include <memory>
#include <string>

#include "host/scripting/typed_lines.h"

/// A person who types lines at a terminal. Esc and Ctrl+C cancel, Ctrl+D ends the input at the
/// prompt for commands and cancels at others.
class Terminal : public host::TypedLines {
  public:
    host::Answer next(const std::wstring& prompt, host::InputUnit unit) final;
    /// Gives command-line text on to standard output.
    virtual void print(const std::wstring& text) = 0;
    /// True when nobody can answer any more: the terminal is closed, or a signal ends the program.
    virtual bool gone() const = 0;
};
std::unique_ptr<Terminal> openTerminal();
