// What a person does with the mouse or Ctrl+Tab at the empty prompt, as typed forms.
#pragma once

#include <optional>
#include <string>

#include "host/application/session.h"
#include "host/editor/dialogue/input.h"
#include "host/editor/run/command_runner.h"

namespace host {

/// The next answer at the empty prompt. Not through prompt(): the end of the input and Esc are no
/// cancelled command here.
Answer answerAtPrompt(InputSource& source, const std::wstring& text, InputUnit unit);

/// Names that can be typed at the empty prompt: commands and gestures.
std::vector<std::wstring> typableNames();

/// Runs a gesture, given its name in upper case: PICK, UNPICK, PICKED or SWITCH. No command runs,
/// and none is notified. Nothing when the name is no gesture's.
std::optional<CommandStatus> runGesture(Session& session, const std::wstring& name);

}  // namespace host
