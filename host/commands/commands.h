// The host's own commands that need no more than a drawing and the editor.
#pragma once

#include "host/editor/run/command_runner.h"

namespace host {

/// All of them, one table for each source.
extern const CommandTable kFigureCommands, kSelectionCommands, kTransformCommands,
    kClipboardCommands, kUndoCommands, kInquiryCommands, kSettingCommands, kViewCommands;

/// Empties the clipboard, which belongs to the application: at the start and end of a session.
void dropClipboard();

}  // namespace host
