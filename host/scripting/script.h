// The `.scr` language: splits text into the answers that prompts take.
#pragma once

#include <cstddef>
#include <string>

#include "host/editor/dialogue/input.h"

namespace host {

/// Reads answers from script text: a blank or a line end finishes an answer, an empty line is
/// Enter, a line that begins with ";" is a comment, double quotes keep blanks together, a
/// parenthesised expression is one answer (its closing bracket does not finish the line).
class ScriptSource : public InputSource {
  public:
    explicit ScriptSource(std::wstring text);
    Answer next(const std::wstring& prompt, InputUnit unit) override;
    bool atEnd() const;
    /// Line of the answer last given, from 1.
    long line() const { return m_answerLine; }

  private:
    std::wstring take(InputUnit unit);
    /// Moves behind the blank or line end that finished an answer.
    void finish();
    /// Moves behind comments, when a line begins here.
    void skipComments();

    std::wstring m_text;
    std::size_t m_position = 0;
    long m_line = 1;
    long m_answerLine = 1;
};

}  // namespace host
