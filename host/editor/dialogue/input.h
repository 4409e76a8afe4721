// Where the answers to prompts come from, and the prompts that commands use.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/objectarx/geometry.h"
#include "host/objectarx/object_id.h"

namespace host {

/// One answer of the user.
struct Answer {
    enum class Kind {
        Text,    ///< something typed
        Enter,   ///< empty input
        Cancel,  ///< Esc or Ctrl+C
        End,     ///< the input is over: treated as Cancel everywhere, and remembered
    };
    Kind kind = Kind::Enter;
    std::wstring text;
};

/// How much of the input one answer takes: up to a blank, or the whole line (texts with blanks).
enum class InputUnit { Token, Line };

/// Gives answers: a script, a terminal or a test.
class InputSource {
  public:
    virtual ~InputSource() = default;
    /// `prompt` is what the user sees in front of the answer; it was printed already.
    virtual Answer next(const std::wstring& prompt, InputUnit unit) = 0;
    /// True when a person types: the source shows what is typed by itself, and a wrong answer is
    /// asked for again.
    virtual bool interactive() const { return false; }
    /// The answer last given is none that a script of the same work would hold: it was wrong and is
    /// asked for again, or a person alone is asked.
    virtual void disregardAnswer() {}
};

/// What the prompt in progress takes: typed words, the name of a file, or what a source may let a
/// person point at.
enum class Wanted { Words, File, Point, Selection, Entity };
struct Question {
    Wanted wanted = Wanted::Words;
    std::optional<AcGePoint3d> base = {};               ///< that a point is drawn from
    const std::vector<AcDbObjectId>* chosen = nullptr;  ///< of a selection, until now
};
/// A prompt that takes more than words sets it by a ScopedValue.
Question& question();

/// The source that prompts read from; owned by who sets it. Null: every prompt is cancelled.
InputSource*& inputSource();

/// Outcome of a prompt of the host's own commands.
enum class PromptStatus { Ok, None, Cancel };

/// Prints `prompt`, echoes and returns the answer.
Answer prompt(const std::wstring& prompt, InputUnit unit = InputUnit::Token);
/// Prints why an answer was not taken. True when it can be asked for again; otherwise the command
/// in progress counts as failed.
bool wrongAnswer(const std::wstring& explanation);
/// Asks until the answer is a point, as readPoint takes it, Enter or cancel; a wrong answer is
/// explained in one line and, when it came from a script, cancels.
PromptStatus promptPoint(const std::wstring& prompt, const AcGePoint3d* base, AcGePoint3d& point);
/// The same, but the answer may also be one of the letters of `words` (upper case) in any case:
/// then Ok with `word` that letter, else 0.
PromptStatus promptPointOrWord(const std::wstring& prompt, const AcGePoint3d* base,
                               const std::wstring& words, AcGePoint3d& point, wchar_t& word);
PromptStatus promptReal(const std::wstring& prompt, double& value);
/// Asks for one of a few words, each given whole or by its first letter in any case; Enter is the
/// word at `standard`. Gives its place, or nothing when the prompt was cancelled.
std::optional<std::size_t> promptWord(const std::wstring& prompt,
                                      const std::vector<std::wstring>& words, std::size_t standard);
PromptStatus promptText(const std::wstring& prompt, std::wstring& text);
/// Asks for the name of a file, UTF-8; ~ is the user's home folder. What a person types is the name
/// up to the end of the line, blanks and all; in a script a blank ends it, and quotes hold it
/// together. None on Enter.
PromptStatus promptFile(const std::wstring& prompt, std::string& path);

/// Bit of acedInitGet: an empty answer is not taken.
constexpr int kNoEmptyAnswer = 1;
/// Options that acedInitGet left for this input call; they hold for one call.
int takeInputOptions();

/// Takes an answer for a point: as parsePoint, but @ without a base counts from the point that was
/// given last in this drawing, at first the origin. Nothing when it is no point.
std::optional<AcGePoint3d> readPoint(const std::wstring& text, const AcGePoint3d* base);
/// Parses "x,y[,z]" or "distance<degrees", with "@" before it from `base`, which "@" alone gives;
/// nothing when it is no point.
std::optional<AcGePoint3d> parsePoint(const std::wstring& text, const AcGePoint3d* base);

}  // namespace host
