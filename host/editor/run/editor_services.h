// The editor as one service of the session: registered once, put back to its first state.
#pragma once

namespace host {

/// Puts the editor's services back to their first state: reactors, commands of modules, selection
/// sets, input. Open selection sets are reported as faults.
void resetEditor();
/// Registers the editor's services in the system registry; called once per session.
void registerEditorServices();

}  // namespace host
