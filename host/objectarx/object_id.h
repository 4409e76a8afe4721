// Object identifiers and handles.
#pragma once

#include "adesk_types.h"
#include "array.h"
#include "error_status.h"

class AcDbDatabase;
class AcDbHandle;
class AcDbObjectId;

/// True when both ids name the same object. The exported comparison of the real host; every id
/// comparison goes through it. Required.
bool c5ObjIdIsEqualTo(const AcDbObjectId& left, const AcDbObjectId& right);

/// Identifier of a database object, valid for the session and across all loaded databases; it
/// stays usable after the object was erased. Documented.
class AcDbObjectId {
  public:
    AcDbObjectId() = default;

    bool isNull() const { return m_value == 0; }
    void setNull() { m_value = 0; }
    /// True when the id is not null and names an object, erased or not, of an open database.
    bool isValid() const;
    /// True when the object is erased; true also for a null or stale id. The latter is chosen: a
    /// null id must never be taken for a live object.
    bool isErased() const;
    /// The object's handle; the null handle for a null or stale id.
    AcDbHandle handle() const;

    bool operator==(const AcDbObjectId& other) const { return c5ObjIdIsEqualTo(*this, other); }
    bool operator!=(const AcDbObjectId& other) const { return !c5ObjIdIsEqualTo(*this, other); }

    /// The id as one opaque word, and back; for the host's own use.
    Adesk::UInt64 asWord() const { return m_value; }
    static AcDbObjectId fromWord(Adesk::UInt64 word) {
        AcDbObjectId id;
        id.m_value = word;
        return id;
    }

  private:
    Adesk::UInt64 m_value = 0;
};

/// Growable array of ids. Assumed.
using AcDbObjectIdArray = AcArray<AcDbObjectId>;

/// Handle of an object: 64-bit value, unique in one database and saved with it. Documented.
class AcDbHandle {
  public:
    AcDbHandle() = default;
    explicit AcDbHandle(Adesk::UInt64 value) : m_value(value) {}
    /// From hexadecimal text, in either case; text that is not hexadecimal gives 0. Chosen.
    explicit AcDbHandle(const ACHAR* text);

    bool isNull() const { return m_value == 0; }
    /// Writes upper-case hexadecimal without leading zeros into `buffer`, which must hold 17
    /// characters. Always true. Assumed.
    bool getIntoAsciiBuffer(ACHAR* buffer) const;
    Adesk::UInt64 value() const { return m_value; }

    bool operator==(const AcDbHandle& other) const { return m_value == other.m_value; }
    bool operator!=(const AcDbHandle& other) const { return m_value != other.m_value; }

  private:
    Adesk::UInt64 m_value = 0;
};

/// Turns an id into an entity name. eNullObjectId for a null id; a stale id is a fault of the
/// caller and gives eInvalidInput. Erased entities convert. Documented form, errors assumed.
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
/// Turns an entity name into an id. eInvalidAdsName for a bad name, with the id set to null
/// (by switch: left alone). Documented form, errors assumed.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
