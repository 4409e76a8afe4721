// Database objects: opening, closing, erasing, extension dictionaries, dictionaries and xrecords.
#pragma once

#include "error_status.h"
#include "object_id.h"
#include "result_buffer.h"
#include "runtime.h"

class AcDbDatabase;

namespace host {
struct ObjectBody;  // what a database object is made of; host/store/object_body.h
struct ViewAccess;  // the host's way to re-point a view; host/objects/opening.h
}  // namespace host

namespace AcDb {
/// How an object is opened. Names documented, values assumed.
enum OpenMode { kForRead = 0, kForWrite = 1 };
}  // namespace AcDb

/// Root of the database classes: a view over the stored tags of one object.
///
/// A pointer that acdbOpenObject gave is valid until close(). An object made with `new` counts as
/// open for write; it may be deleted until it joins a database, and must be closed afterwards.
/// Documented. Closing an object that is not open, or deleting one that is in a database, is
/// reported as a fault of the caller.
class AcDbObject : public AcRxObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbObject)
    ~AcDbObject() override;

    /// The id, or the null id while the object is not in a database. Assumed.
    AcDbObjectId objectId() const;
    /// Id of the owner; null for an object that is not in a database. Assumed.
    AcDbObjectId ownerId() const;
    /// The handle; null while the object is not in a database. Documented.
    void getAcDbHandle(AcDbHandle& handle) const;

    /// Ends this opening. eOk, or eNotInDatabase for an object that is in no database. Documented.
    /// eInvalidOpenState and a report when it is not open (chosen).
    Acad::ErrorStatus close();
    /// Turns the only reader into the writer. eHadMultipleReaders when there are more. Documented.
    Acad::ErrorStatus upgradeOpen();
    /// Marks the object erased; needs write access (eNotOpenForWrite), eWasErased when it is erased
    /// already. Taking the mark back is not served (eNotApplicable). A dictionary entry leaves its
    /// dictionary for good. A block reference takes its attributes along, every object its
    /// extension dictionary (these two assumed). eCannotBeErasedByCaller for the viewport that is
    /// the paper of a layout (assumed). Documented.
    Acad::ErrorStatus erase(Adesk::Boolean erasing = Adesk::kTrue);

    /// Gives the object an extension dictionary. eAlreadyInDb when it has one, eNotOpenForWrite
    /// without write access, eNotInDatabase for an object that is in no database. Its entries are
    /// hard-owned (assumed; copies through the clipboard rely on it). Documented.
    Acad::ErrorStatus createExtensionDictionary();
    /// Detaches and erases an empty extension dictionary. eContainerNotEmpty when it holds
    /// entries, eKeyNotFound when there is none (chosen), eWasOpenForRead or eWasOpenForWrite
    /// when it is open (chosen), eWasErased when it was erased by itself (chosen). Documented
    /// otherwise.
    Acad::ErrorStatus releaseExtensionDictionary();
    /// Id of the extension dictionary, or the null id; an erased dictionary that was not released
    /// is still named. Documented.
    AcDbObjectId extensionDictionary() const;

    /// For the host's own use: the stored content behind this view.
    /// Of a closed object it is an empty one, and the use is reported as a fault.
    host::ObjectBody& body() const;

  protected:
    /// Takes a body that is not in a database yet (ownership passes to the view), or one that is.
    explicit AcDbObject(host::ObjectBody* body);

  private:
    friend struct host::ViewAccess;
    host::ObjectBody* m_body;
};

/// Opens the object with `id`. On failure `object` is null. eNullObjectId, eWasErased,
/// eAtMaxReaders after 256 readers, eWasOpenForRead, eWasOpenForWrite;
/// eOnLockedLayer for writing an entity on a locked layer. A stale id is a fault of
/// the caller and gives eInvalidInput. Documented, error names partly assumed.
Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode);

/// The same for a wanted class; eNotThatKindOfClass leaves the object closed. Documented form.
template <typename T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode) {
    object = nullptr;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(opened, id, mode);
    if (status != Acad::eOk) return status;
    object = T::cast(opened);
    if (object != nullptr) return Acad::eOk;
    opened->close();
    return Acad::eNotThatKindOfClass;
}

/// Map from text keys to owned objects. Keys are compared without regard to case and keep the case
/// they were given. Documented.
class AcDbDictionary : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary)
    explicit AcDbDictionary(host::ObjectBody* body) : AcDbObject(body) {}

    /// Opens the entry under `key`. eKeyNotFound, or the status of the opening; `entry` is null on
    /// failure. The caller closes it. Documented.
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObject*& entry, AcDb::OpenMode mode) const;
    /// Id of the entry under `key`. eKeyNotFound. Documented.
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObjectId& id) const;
    /// Puts a new object under `key`, erasing what stood there; the dictionary becomes its owner
    /// and the object stays open for write until the caller closes it. eNotOpenForWrite,
    /// eInvalidKey, eNullObjectPointer, eAlreadyInDb. Documented, error names assumed.
    Acad::ErrorStatus setAt(const ACHAR* key, AcDbObject* newValue, AcDbObjectId& id);
    /// Removes and erases the entry under `key`. eKeyNotFound, eNotOpenForWrite, or the status of
    /// opening the entry. Documented.
    Acad::ErrorStatus remove(const ACHAR* key);
};

/// Free-form record: a chain of DXF tags 1 to 369 without 5 and 105. Documented.
class AcDbXrecord : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord)
    AcDbXrecord();
    explicit AcDbXrecord(host::ObjectBody* body) : AcDbObject(body) {}

    /// Replaces the content by a copy of `chain`. eNotOpenForWrite, eInvalidDxfCode for a code out
    /// of range (error name assumed). Documented.
    Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* auxDb = nullptr);
    /// A fresh copy of the content for the caller (acutRelRb); null when empty (assumed).
    /// Documented.
    Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* auxDb = nullptr) const;
};
