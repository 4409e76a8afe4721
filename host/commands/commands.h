// The host's own commands that need no more than a drawing and the editor.
#pragma once

namespace host {

/// Registers all of them; called once per session.
void registerHostCommands();

/// The groups of commands, one source each.
void registerFigureCommands();
void registerSelectionCommands();
void registerTransformCommands();
void registerClipboardCommands();
void registerUndoCommands();
void registerInquiryCommands();
void registerSettingCommands();
void registerViewCommands();

/// Empties the clipboard, which belongs to the application: at the start and end of a session.
void dropClipboard();

}  // namespace host
