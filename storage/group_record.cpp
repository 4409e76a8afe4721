// Gives entities their group record, recognises it and takes it away.
#include "group_record.h"

#include "diagnostics.h"
#include "group_naming.h"
#include "host_guards.h"

namespace {

const CheckSource DIAG_SOURCE = L"GroupRecord";
const int kTextCode = 1;

/// Text of the first text group in the record; empty when it has none.
std::wstring recordText(const AcDbXrecord& record) {
    ResultBuffers chain;
    DIAG_CHECK(record.rbChain(chain.receive()) == Acad::eOk);
    for (const resbuf* item = chain.get(); item != nullptr; item = item->rbnext) {
        if (item->restype != kTextCode) continue;
        return item->resval.rstring != nullptr ? item->resval.rstring : L"";
    }
    return std::wstring();
}

/// Null when the entity has none or cannot be opened.
AcDbObjectId extensionDictionaryOf(const AcDbObjectId& entityId) {
    Opened<AcDbObject> entity;
    if (acdbOpenObject(entity.receive(), entityId, AcDb::kForRead) != Acad::eOk) {
        return AcDbObjectId();
    }
    return entity->extensionDictionary();
}

/// Puts `record` with the group text into the extension dictionary.
void storeRecord(const AcDbObjectId& dictionaryId, AcDbXrecord& record) {
    const std::wstring prefix = groupPrefix();
    Opened<AcDbDictionary> dictionary;
    if (!DIAG_CHECK(acdbOpenObject(dictionary.receive(), dictionaryId, AcDb::kForWrite) ==
                    Acad::eOk)) {
        return;
    }
    AcDbObjectId recordId;
    DIAG_CHECK(dictionary->setAt((prefix + GroupSuffix::kRecordKey).c_str(), &record, recordId) ==
               Acad::eOk);
    dictionary.close();

    const std::wstring text = prefix + GroupSuffix::kRecordText;
    const ResultBuffers chain(acutBuildList(kTextCode, text.c_str(), 0));
    if (chain.get() == nullptr) return;
    DIAG_CHECK(record.setFromRbChain(*chain.get()) == Acad::eOk);
}

enum Dictionary { kNewDictionaryOnly, kAnyDictionary };

/// False when the entity cannot be opened, which prints a line, or has no dictionary for it.
bool giveRecord(const AcDbObjectId& entityId, Dictionary wanted) {
    NewObject<AcDbXrecord> record(new AcDbXrecord);
    Opened<AcDbObject> entity;
    if (acdbOpenObject(entity.receive(), entityId, AcDb::kForWrite) != Acad::eOk) {
        acutPrintf(L"\nIn fucntion createXrecord acdbOpenObject failed.");
        return false;
    }
    const Acad::ErrorStatus status = entity->createExtensionDictionary();
    if (status == Acad::eAlreadyInDb && wanted == kNewDictionaryOnly) return false;
    const bool ready = status == Acad::eOk || status == Acad::eAlreadyInDb;
    DIAG_ASSERT(ready, L"entity->createExtensionDictionary() == Acad::eOk");
    const AcDbObjectId dictionaryId = entity->extensionDictionary();
    entity.close();
    storeRecord(dictionaryId, *record.get());
    return ready;
}

}  // namespace

bool createXrecord(const AcDbObjectId& entityId) {
    // An extension dictionary of somebody else's is left alone: such an entity gets no record.
    return giveRecord(entityId, kNewDictionaryOnly);
}

bool restoreXrecord(const AcDbObjectId& entityId) { return giveRecord(entityId, kAnyDictionary); }

bool isGroupedEntity(const AcDbObjectId& entityId) {
    if (entityId.isErased()) return false;
    Opened<AcDbDictionary> dictionary;
    if (acdbOpenObject(dictionary.receive(), extensionDictionaryOf(entityId), AcDb::kForRead) !=
        Acad::eOk) {
        return false;
    }
    const std::wstring prefix = groupPrefix();
    Opened<AcDbObject> entry;
    dictionary->getAt((prefix + GroupSuffix::kRecordKey).c_str(), entry.receive(), AcDb::kForRead);
    dictionary.close();
    if (!entry.isOpen() || !entry->isA()->isDerivedFrom(AcDbXrecord::desc())) return false;
    const AcDbXrecord& record = *static_cast<const AcDbXrecord*>(entry.get());
    return recordText(record) == prefix + GroupSuffix::kRecordText;
}

bool deleteXrecord(const AcDbObjectId& entityId) {
    Opened<AcDbObject> entity;
    if (acdbOpenObject(entity.receive(), entityId, AcDb::kForWrite) != Acad::eOk) {
        acutPrintf(L"\nIn fucntion deleteXrecord Open Object failed.");
        return false;
    }
    Opened<AcDbDictionary> dictionary;
    if (acdbOpenObject(dictionary.receive(), entity->extensionDictionary(), AcDb::kForWrite) !=
        Acad::eOk) {
        acutPrintf(L"\nIn fucntion deleteXrecord Open Dictionary failed.");
    } else if (dictionary->remove((groupPrefix() + GroupSuffix::kRecordKey).c_str()) != Acad::eOk) {
        acutPrintf(L"\nRemoving entry from the dictionary... failed.");
    }
    dictionary.close();
    if (entity->releaseExtensionDictionary() == Acad::eContainerNotEmpty) {
        acutPrintf(L"\nThe dictionary is not empty... failed.");
    }
    return true;
}
