// Sending editor notifications to the attached reactors, with the accounting around each.
#pragma once

#include <string>

#include "host/editor/state/reactor_list.h"

class AcDbDatabase;
class AcRxEventReactor;

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
/// The attached editor reactors.
ReactorList<AcRxEventReactor>& editorReactors();

/// Work the host does when it is idle, so never while a command runs: notifications that wait.
void idle();

}  // namespace host
