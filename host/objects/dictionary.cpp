// AcDbDictionary: entries by key.
#include "host/content/dictionary_text.h"
#include "host/content/fields.h"
#include "host/control/faults.h"
#include "host/objects/erasing.h"
#include "host/objects/opening.h"
#include "host/store/store.h"

using namespace host;

namespace {

bool keyIsValid(const ACHAR* key) {
    if (key == nullptr || *key == 0) return false;
    return std::wstring_view(key).find_first_of(L"|*\\:;<>?\",=`") == std::wstring_view::npos;
}

/// The object under a key, or null. An entry whose object is missing counts as none.
ObjectBody* valueOf(const ObjectBody& dictionary, const ACHAR* key) {
    if (key == nullptr || dictionary.store == nullptr) return nullptr;
    const auto entry = findEntry(dictionary, key);
    return entry ? dictionary.store->byHandle(entry->handle) : nullptr;
}

}  // namespace

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObject*& entry,
                                        AcDb::OpenMode mode) const {
    entry = nullptr;
    if (callFails("AcDbDictionary::getAt")) return Acad::eKeyNotFound;
    ObjectBody* const value = valueOf(body(), key);
    return value != nullptr ? openBody(entry, *value, mode) : Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* key, AcDbObjectId& id) const {
    id.setNull();
    if (callFails("AcDbDictionary::getAt")) return Acad::eKeyNotFound;
    const ObjectBody* const value = valueOf(body(), key);
    if (value == nullptr) return Acad::eKeyNotFound;
    id = value->store->idOf(*value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* key, AcDbObject* newValue, AcDbObjectId& id) {
    id.setNull();
    if (callFails("AcDbDictionary::setAt")) return Acad::eInvalidKey;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (!keyIsValid(key) || !host::fitsValue(content, key)) return Acad::eInvalidKey;
    if (newValue == nullptr) return Acad::eNullObjectPointer;
    if (!isObjectKind(newValue->body().kind)) return Acad::eWrongObjectType;
    Store& store = *content.store;
    ObjectBody* const former = valueOf(content, key);
    if (former != nullptr) {
        const Acad::ErrorStatus status = mayOpen(*former, AcDb::kForWrite, true);
        if (status != Acad::eOk) return status;
    }
    const Acad::ErrorStatus status = makeResident(*newValue, store, content.self);
    if (status != Acad::eOk) return status;
    if (const auto entry = findEntry(content, key)) {
        removeEntry(content, entry->handle);
        if (former != nullptr && former->owner == content.self) eraseWithOwned(*former);
    }
    ObjectBody& value = newValue->body();
    store.appendChild(store.objectsList(), value);
    addEntry(content, key, value.handle);
    id = store.idOf(value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* key) {
    if (callFails("AcDbDictionary::remove")) return Acad::eKeyNotFound;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    ObjectBody* const value = valueOf(content, key);
    if (value == nullptr) return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = mayOpen(*value, AcDb::kForWrite, true);
    if (status != Acad::eOk) return status;
    removeEntry(content, value->handle);
    if (value->owner == content.self) eraseWithOwned(*value);
    return Acad::eOk;
}
