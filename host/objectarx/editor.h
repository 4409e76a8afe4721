// The editor and its notifications. Every default returns at once (documented).
#pragma once

#include "adesk_types.h"
#include "runtime.h"

class AcDbDatabase;

/// Receives database events of the session. Deleting one that is still attached is reported as a
/// fault of the caller; the host then detaches it (chosen).
class AcRxEventReactor : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxEventReactor)
    ~AcRxEventReactor() override;
    /// A save of `database` to `intendedName` is about to write; what is changed here is part of
    /// the saved file. Documented event.
    virtual void beginSave(AcDbDatabase* database, const ACHAR* intendedName);
    /// The save has written. Documented event.
    virtual void saveComplete(AcDbDatabase* database, const ACHAR* actualName);
};

/// Receives editor events. Command names come as global names in upper case without prefixes
/// (assumed); exactly one of ended, cancelled and failed follows a start (assumed).
class AcEditorReactor : public AcRxEventReactor {
  public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor)
    virtual void commandWillStart(const ACHAR* name);
    virtual void commandEnded(const ACHAR* name);
    virtual void commandCancelled(const ACHAR* name);
    virtual void commandFailed(const ACHAR* name);
    /// The pick-first set of the current document changed, also by the application itself; inside
    /// or after acedSSSetFirst (switchable). Documented event.
    virtual void pickfirstModified();
};

/// Source of database events.
class AcRxEvent : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcRxEvent)
    /// Attaches a reactor, which stays the caller's; twice is ignored (chosen).
    virtual void addReactor(AcRxEventReactor* reactor) const;
    /// Detaches it; an unknown one is ignored (chosen).
    virtual void removeReactor(AcRxEventReactor* reactor) const;
};

/// The editor, in the system registry as "AcEditor".
class AcEditor : public AcRxEvent {
  public:
    ACRX_DECLARE_MEMBERS(AcEditor)
};
