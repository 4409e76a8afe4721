// The terminal, with its line editing.
#pragma once

#include <memory>
#include <string>

#include "host/scripting/typed_lines.h"

/// A person who types lines at a terminal. Esc and Ctrl+C cancel, Ctrl+D ends the input.
class Terminal : public host::TypedLines {
  public:
    /// Gives command-line text on to standard output.
    virtual void print(const std::wstring& text) = 0;
};
std::unique_ptr<Terminal> openTerminal();
