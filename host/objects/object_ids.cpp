// Object identifiers, handles and entity names.
#include "host/objectarx/object_id.h"

#include "host/control/faults.h"
#include "host/control/switches.h"
#include "host/objects/opening.h"
#include "host/objects/result_list.h"
#include "host/store/store.h"
#include "host/store/store_memory.h"
#include "host/tags/tags.h"

using namespace host;

bool c5ObjIdIsEqualTo(const AcDbObjectId& left, const AcDbObjectId& right) {
    return left.asWord() == right.asWord();
}

bool AcDbObjectId::isValid() const { return Store::resolve(*this) != nullptr; }

bool AcDbObjectId::isErased() const {
    const ObjectBody* const body = bodyOfId(*this, "AcDbObjectId::isErased");
    return body == nullptr || body->erased;
}

AcDbHandle AcDbObjectId::handle() const {
    const ObjectBody* const body = bodyOfId(*this, "AcDbObjectId::handle");
    return body != nullptr ? AcDbHandle(body->handle) : AcDbHandle();
}

AcDbHandle::AcDbHandle(const ACHAR* text) {
    std::string digits;
    for (; text != nullptr && *text != 0; ++text)
        digits += *text < 128 ? static_cast<char>(*text) : '?';
    m_value = parseHandle(digits).value_or(0);
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
    for (const char digit : formatHandle(m_value))
        *buffer++ = static_cast<ACHAR>(digit);
    *buffer = 0;
    return true;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
    ads_name_clear(name);
    if (callFails("acdbGetAdsName")) return Acad::eInvalidInput;
    if (id.isNull()) return Acad::eNullObjectId;
    if (bodyOfId(id, "acdbGetAdsName") == nullptr) return Acad::eInvalidInput;
    nameOfId(id, name);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    if (switches().failedIdIsNull) id.setNull();
    if (callFails("acdbGetObjectId")) return Acad::eInvalidAdsName;
    const AcDbObjectId wanted = idOfName(name);
    if (Store::resolve(wanted) == nullptr) {
        // A name that this session never gave out is merely bad; one of a closed drawing is stale.
        const Adesk::UInt64 serial = wanted.asWord() >> 32;
        const auto& stores = storesBySerial();
        if (serial != 0 && serial < stores.size() && stores[serial] == nullptr)
            bodyOfId(wanted, "acdbGetObjectId");
        return Acad::eInvalidAdsName;
    }
    id = wanted;
    return Acad::eOk;
}
