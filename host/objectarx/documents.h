// Documents: the open drawings and their notifications.
#pragma once

#include "adesk_types.h"
#include "runtime.h"

class AcDbDatabase;

/// One open drawing. Addresses are re-used after a document is gone. Documented.
class AcApDocument : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocument)
    /// The drawing's database; owned by the document.
    virtual AcDbDatabase* database() const;
    /// Path of the drawing as opened or last saved; owned by the document.
    virtual const ACHAR* fileName() const;
};

/// Receives document events. Every default does nothing. Names assumed.
class AcApDocManagerReactor : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor)
    /// Deleting a reactor that is attached is reported as a fault of its owner. Chosen.
    ~AcApDocManagerReactor() override;
    virtual void documentCreated(AcApDocument* document);
    /// The document is about to go; it and its database still exist. Comes after kUnloadDwgMsg
    /// (chosen).
    virtual void documentToBeDestroyed(AcApDocument* document);
    virtual void documentBecameCurrent(AcApDocument* document);
};

/// The one manager of the open drawings.
class AcApDocManager : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcApDocManager)
    /// The document current for database access, or null when none is open. Documented.
    virtual AcApDocument* curDocument() const;
    virtual void addReactor(AcApDocManagerReactor* reactor);
    virtual void removeReactor(AcApDocManagerReactor* reactor);
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
