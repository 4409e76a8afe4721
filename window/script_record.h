// A session as a script: what a person did, in the language of scripts, fit to be run again.
#pragma once

#include <string>

#include "host/editor/dialogue/input.h"

namespace window {

/// How a command went, as far as a script has to know.
struct CommandEnd {
    bool failed = false;      ///< failed or was unknown
    bool cancelled = false;   ///< by the person
    bool changed = false;     ///< the drawing is not as before
    bool dropsPicks = false;  ///< what was picked before is not any more
    bool isCommand = false;   ///< what Enter repeats: no gesture and no expression
};

/// Collects answers, and adds those of a command to the script when it is over. What a script
/// would stop at stays out: commands that failed, wrong answers, and questions that a person alone
/// is asked. A script knows no Esc: a cancelled command that changed something ends with Enter
/// there, and one that changed nothing is left out.
class ScriptRecord {
  public:
    /// `first`: the answer begins a typed line.
    void add(const host::Answer& answer, host::InputUnit unit, bool first);
    /// The answer added last is not the script's.
    void takeBack();
    /// The command is over.
    void finish(const CommandEnd& end);
    /// The person let go what was picked, with Esc at the empty prompt.
    void dropPicks() { m_text += "PICK NONE\n"; }

    /// The script in UTF-8; it only grows.
    const std::string& text() const { return m_text; }

  private:
    std::string m_text;
    std::string m_command;        ///< answers of the command under way
    std::size_t m_lastBegin = 0;  ///< where its last answer stands there
    std::wstring m_name;          ///< its first answer; empty for Enter
    std::wstring m_repeated;      ///< what Enter would repeat
};

}  // namespace window
