// The drawing database, deep cloning and the host application's services.
#pragma once

#include <memory>

#include "database_objects.h"
#include "symbol_tables.h"

namespace host {
class Store;     // the drawing's content; host/store/store.h
class CloneMap;  // the pairs of one cloning; host/clone/deep_clone.h
}  // namespace host

/// Pairs of source and clone of one deep cloning. Use a fresh one each time. Documented.
class AcDbIdMapping {
  public:
    AcDbIdMapping();
    ~AcDbIdMapping();
    AcDbIdMapping(const AcDbIdMapping&) = delete;
    AcDbIdMapping& operator=(const AcDbIdMapping&) = delete;
    /// For the host's own use.
    host::CloneMap& map() { return *m_map; }

  private:
    std::unique_ptr<host::CloneMap> m_map;
};

/// One drawing.
class AcDbDatabase : public AcHeapOperators {
  public:
    /// Takes over a store that was loaded, for the host's own use.
    explicit AcDbDatabase(std::unique_ptr<host::Store> store);
    ~AcDbDatabase();
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    /// Opens a symbol table; the caller closes it. Null on failure. Documented.
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode);
    /// The object with a handle, erased or not. eUnknownHandle (with the null id) when there is
    /// none; `createIfNotFound` is not served (eNotApplicable). Assumed order of arguments.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                      const AcDbHandle& handle, Adesk::UInt32 xRefId = 0);
    /// True when the Model tab is current. Assumed.
    bool tilemode() const;
    /// Makes a layer current; eInvalidInput for a frozen one (assumed), eNotThatKindOfClass.
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    /// Clones objects of one owner with all they own, hard and soft, and appends the clones to
    /// `owner` in list order, primary object before what it owns. References inside the cloned set
    /// follow it, others keep their target. Sources open for write give eWasOpenForWrite, an open
    /// owner eWasOpenForRead or eWasOpenForWrite (chosen), an object of another owner than the
    /// first eInvalidInput (chosen), of another database eWrongDatabase; nothing is cloned then.
    /// Erased sources are skipped and an empty list is eOk (chosen). Documented otherwise.
    Acad::ErrorStatus deepCloneObjects(AcDbObjectIdArray& objectIds, AcDbObjectId& owner,
                                       AcDbIdMapping& idMap, bool deferXlation = false);

    /// For the host's own use.
    host::Store& store() const { return *m_store; }

  private:
    std::unique_ptr<host::Store> m_store;
};

/// Services that the host gives to the database.
class AcDbHostApplicationServices {
  public:
    /// The working drawing, or null; owned by its document. Documented.
    AcDbDatabase* workingDatabase() const { return m_working; }
    void setWorkingDatabase(AcDbDatabase* database) { m_working = database; }

  private:
    AcDbDatabase* m_working = nullptr;
};
AcDbHostApplicationServices* acdbHostApplicationServices();
