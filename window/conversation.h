// A person at a page instead of a terminal: inputs for the session, and what came of each.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "host/application/session.h"
#include "host/scripting/typed_lines.h"
#include "window/command_watch.h"
#include "window/desk.h"
#include "window/script_record.h"

namespace window {

/// Of the host's thread. While the session waits for an answer, the work on the desk is done; one
/// piece of it may give the session its next lines, and its reply comes at the prompt behind them.
class Conversation : public host::TypedLines {
  public:
    /// `composeNews` makes the reply to an input; `isOver` is asked every moment of waiting.
    Conversation(host::Session& session, Desk& desk, CommandWatch& watch,
                 std::function<std::string()> composeNews, std::function<bool()> isOver);

    host::Answer next(const std::wstring& prompt, host::InputUnit unit) override;
    void disregardAnswer() override { m_record.takeBack(); }
    /// Takes command-line text.
    void print(const std::wstring& text);
    /// Takes the line about a command that did not end well.
    void diagnose(const std::string& line);

    /// Gives the session lines as if they were typed, or Esc; `reply` gets its value afterwards.
    void type(std::vector<std::wstring> lines, const Reply& reply);
    void cancel(const Reply& reply);
    /// The session is over: the reply that is still due.
    void conclude();

    /// What was printed up to the prompt, since the begin; its first part may be forgotten.
    const std::wstring& transcript() const { return m_transcript; }
    /// Number of characters that were forgotten.
    std::size_t forgotten() const { return m_forgotten; }
    /// What stands in front of the answer.
    const std::wstring& prompt() const { return m_open; }
    bool atCommand() const { return m_atCommand; }
    /// True when an answer takes a whole line, blanks and all.
    bool takesLine() const { return m_unit == host::InputUnit::Line; }
    /// True while the session waits for an answer.
    bool waits() const { return m_waits; }
    const ScriptRecord& record() const { return m_record; }

  private:
    struct Input {
        bool escape = false;
        std::wstring line;
    };
    /// What tells whether a drawing is as it was.
    struct Mark {
        std::uint32_t drawing = 0;
        std::uint64_t revision = 0, seed = 0;
        bool operator!=(const Mark& other) const {
            return drawing != other.drawing || revision != other.revision || seed != other.seed;
        }
    };
    bool readLine(const std::wstring& prompt, host::InputUnit unit, std::wstring& line,
                  host::Answer& otherwise) override;
    void finishCommand();
    void put(const std::wstring& text);
    Mark mark() const;

    host::Session& m_session;
    Desk& m_desk;
    CommandWatch& m_watch;
    std::function<std::string()> m_composeNews;
    std::function<bool()> m_isOver;
    std::deque<Input> m_inputs;
    Reply m_reply;  ///< due at the next prompt
    ScriptRecord m_record;
    std::wstring m_transcript, m_open;
    std::size_t m_forgotten = 0;
    bool m_atLineBegin = true;  ///< nothing was printed since a line was typed
    bool m_atCommand = false;
    bool m_waits = false;
    bool m_failed = false;   ///< the command under way, or what stands for one
    bool m_escaped = false;  ///< in it
    Mark m_before;           ///< it began
    bool m_pickedBefore = false;
    host::InputUnit m_unit = host::InputUnit::Token;
};

}  // namespace window
