// Sending editor notifications to the attached reactors, with the accounting around each.
#pragma once

#include <string>

class AcDbDatabase;

namespace host {

void notifyCommandWillStart(const std::wstring& upperName);
void notifyCommandEnded(const std::wstring& upperName);
void notifyCommandCancelled(const std::wstring& upperName);
void notifyCommandFailed(const std::wstring& upperName);
void notifyPickfirstModified();
void notifyBeginSave(AcDbDatabase* database, const std::wstring& intendedName);
void notifySaveComplete(AcDbDatabase* database, const std::wstring& actualName);
/// False, with a fault of the module named after `call`, while a notification is being delivered.
bool inputAllowed(const char* call);
/// Number of attached editor reactors.
int editorReactorCount();

/// Puts the editor's services back to their first state: reactors, commands of modules, selection
/// sets, input. Open selection sets are reported as faults.
void resetEditor();
/// Registers the editor's services in the system registry; called once per session.
void registerEditorServices();

}  // namespace host
