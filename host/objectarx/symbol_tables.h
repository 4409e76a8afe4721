// Symbol tables and their records: blocks, layers, linetypes.
#pragma once

#include "database_objects.h"
#include "geometry.h"

class AcDbEntity;

/// Colour by index: 0 ByBlock, 256 ByLayer, 7 white or black. Assumed.
class AcCmColor {
  public:
    Adesk::UInt16 colorIndex() const { return m_index; }
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index) {
        if (index > 256) return Acad::eInvalidInput;
        m_index = index;
        return Acad::eOk;
    }

  private:
    Adesk::UInt16 m_index = 0;
};

/// Named entry of a symbol table.
class AcDbSymbolTableRecord : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord)
    explicit AcDbSymbolTableRecord(host::ObjectBody* body) : AcDbObject(body) {}
    /// The name as an allocated copy that the caller frees (acutDelString). Assumed.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    /// Names a new record. eInvalidSymbolTableName for an empty or forbidden name,
    /// eNotOpenForWrite. Assumed. Renaming a record that is in a table already is not served
    /// (eNotApplicable).
    Acad::ErrorStatus setName(const ACHAR* name);
};

/// Table of named records. Names are looked up without regard to case and keep theirs. Documented.
class AcDbSymbolTable : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable)
    explicit AcDbSymbolTable(host::ObjectBody* body) : AcDbObject(body) {}

    /// True when a record of that name exists that is not erased. Documented, erasure assumed.
    bool has(const ACHAR* name) const;
    /// Id of a record. eKeyNotFound when there is none (assumed), eWasErased and the null id for
    /// an erased one. Documented.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    /// Opens a record; null on failure. As above, or the status of the opening. Documented.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                            AcDb::OpenMode mode) const;
    /// Adds a new record, which stays open for write. eNotOpenForWrite, eDuplicateRecordName,
    /// eInvalidSymbolTableName, eWrongObjectType. Documented, error names assumed.
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
};

class AcDbBlockTableRecord;

/// Walks the live main entities of a block in drawing order, from the first on. The caller deletes
/// it before the record is closed. Names documented, arguments assumed.
class AcDbBlockTableRecordIterator : public AcRxObject {
  public:
    explicit AcDbBlockTableRecordIterator(const AcDbBlockTableRecord& block);
    ~AcDbBlockTableRecordIterator() override;
    static AcRxClass* desc();
    AcRxClass* isA() const override;

    /// To the next entity; harmless when done.
    void step();
    bool done() const;
    /// Opens the current entity; null on failure. The caller closes it.
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode) const;

  private:
    AcDbObjectId m_current;
};

/// Block definition, or one of the spaces. Owns its entities in drawing order.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)
    AcDbBlockTableRecord();
    explicit AcDbBlockTableRecord(host::ObjectBody* body) : AcDbSymbolTableRecord(body) {}

    /// Appends a new entity at the end; it stays open for write. The record must be in a database
    /// and open for write. Assumed, use documented.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    /// New iterator; the caller deletes it. Documented.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator) const;
    /// True when the block holds at least one attribute definition. Chosen for constant ones.
    bool hasAttributeDefinitions() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
};

/// Layer. A new one is on, thawed, unlocked, colour 7, linetype CONTINUOUS. Assumed.
class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord)
    AcDbLayerTableRecord();
    explicit AcDbLayerTableRecord(host::ObjectBody* body) : AcDbSymbolTableRecord(body) {}

    Acad::ErrorStatus setColor(const AcCmColor& color);
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    bool isLocked() const;
    /// Freezing the current layer fails with eInvalidInput. Assumed.
    Acad::ErrorStatus setIsFrozen(bool frozen);
};

/// Linetype.
class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord)
    explicit AcDbLinetypeTableRecord(host::ObjectBody* body) : AcDbSymbolTableRecord(body) {}
};

/// Adds the typed openings of one table class to the general table. eNotThatKindOfClass, and
/// nothing is open, for a record of another class, which only a damaged drawing has. Assumed.
#define HOST_TYPED_TABLE(TABLE, RECORD)                                                          \
    class TABLE : public AcDbSymbolTable {                                                       \
      public:                                                                                    \
        ACRX_DECLARE_MEMBERS(TABLE)                                                              \
        explicit TABLE(host::ObjectBody* body) : AcDbSymbolTable(body) {}                        \
        using AcDbSymbolTable::getAt;                                                            \
        Acad::ErrorStatus getAt(const ACHAR* name, RECORD*& record, AcDb::OpenMode mode) const { \
            record = nullptr;                                                                    \
            AcDbSymbolTableRecord* opened = nullptr;                                             \
            const Acad::ErrorStatus status = AcDbSymbolTable::getAt(name, opened, mode);         \
            if (status != Acad::eOk) return status;                                              \
            record = RECORD::cast(opened);                                                       \
            if (record != nullptr) return Acad::eOk;                                             \
            opened->close();                                                                     \
            return Acad::eNotThatKindOfClass;                                                    \
        }                                                                                        \
    }

HOST_TYPED_TABLE(AcDbBlockTable, AcDbBlockTableRecord);
HOST_TYPED_TABLE(AcDbLayerTable, AcDbLayerTableRecord);
HOST_TYPED_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord);
#undef HOST_TYPED_TABLE

/// Names of the space blocks. Documented.
#define ACDB_MODEL_SPACE ACRX_T("*Model_Space")
#define ACDB_PAPER_SPACE ACRX_T("*Paper_Space")
