// A person who types whole lines, each of which gives its answers as a line of a script would.
#pragma once

#include <optional>
#include <string>

#include "host/scripting/script.h"

namespace host {

/// Takes lines apart for prompts. A blank ends an answer, an empty line is Enter; what a line still
/// holds when a command is over are the next command's answers.
class TypedLines : public InputSource {
  public:
    Answer next(const std::wstring& prompt, InputUnit unit) override;
    bool interactive() const final { return true; }

  protected:
    /// Reads a line behind the prompt, with or without its end; false when there is none, with the
    /// answer that stands for it.
    virtual bool readLine(const std::wstring& prompt, InputUnit unit, std::wstring& line,
                          Answer& otherwise) = 0;
    /// True when the answer last given was the first of its line.
    bool beganLine() const { return m_beganLine; }

  private:
    std::optional<ScriptSource> m_line;  ///< what is left of the typed line
    bool m_beganLine = true;
};

/// True for the prompt for commands, the one between them.
bool asksForCommand(const std::wstring& prompt);

}  // namespace host
