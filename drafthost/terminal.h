// The terminal, with its line editing.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/editor/dialogue/input.h"
#include "host/scripting/script.h"

/// A person who types lines. A line gives its answers as a script line would; Esc and Ctrl+C
/// cancel, Ctrl+D ends the input.
class Terminal : public host::InputSource {
  public:
    host::Answer next(const std::wstring& prompt, host::InputUnit unit) final;
    bool interactive() const final { return true; }
    /// Gives command-line text on to standard output.
    virtual void print(const std::wstring& text) = 0;

  protected:
    /// Reads a line behind the prompt; false when there is none, with the answer that stands for
    /// it.
    virtual bool readLine(const std::wstring& prompt, std::wstring& line,
                          host::Answer& otherwise) = 0;

  private:
    std::optional<host::ScriptSource> m_line;  ///< what is left of the typed line
};
/// The prompt for commands, at which Tab completes their names.
bool asksForCommand(const std::wstring& prompt);
std::unique_ptr<Terminal> openTerminal();
