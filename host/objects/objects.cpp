// Database objects: who they are, erasing, extension dictionaries.
#include "host/content/dictionary_text.h"
#include "host/content/paper_viewport.h"
#include "host/control/faults.h"
#include "host/objects/erasing.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"

using namespace host;

AcDbObjectId AcDbObject::objectId() const {
    const ObjectBody& content = body();
    return content.store != nullptr ? content.store->idOf(content) : AcDbObjectId();
}

AcDbObjectId AcDbObject::ownerId() const {
    const ObjectBody& content = body();
    return content.store != nullptr ? content.store->idOf(content.owner) : AcDbObjectId();
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const { handle = AcDbHandle(body().handle); }

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
    if (callFails("AcDbObject::erase")) return Acad::eCannotBeErasedByCaller;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (!erasing) return Acad::eNotApplicable;
    if (content.erased) return Acad::eWasErased;
    if (isPaperViewport(content)) return Acad::eCannotBeErasedByCaller;
    ObjectBody& owner = content.store->at(content.owner);
    if (owner.kind == Kind::Dictionary) removeEntry(owner, content.handle);
    eraseWithOwned(content);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (callFails("AcDbObject::createExtensionDictionary")) return Acad::eOutOfMemory;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (extensionDictionaryHandle(content.tags()) != 0) return Acad::eAlreadyInDb;
    Store& store = *content.store;
    ObjectBody& dictionary = store.make(Kind::Dictionary, newDictionaryText(true), content.self);
    store.appendChild(store.objectsList(), dictionary);
    std::string text(content.tags());
    setExtensionDictionary(text, dictionary.handle);
    content.setTags(text);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary() {
    if (callFails("AcDbObject::releaseExtensionDictionary")) return Acad::eWasOpenForWrite;
    ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    const std::uint64_t handle = extensionDictionaryHandle(content.tags());
    if (handle == 0) return Acad::eKeyNotFound;
    ObjectBody* const dictionary = content.store->byHandle(handle);
    if (dictionary != nullptr) {
        const Acad::ErrorStatus status = mayOpen(*dictionary, AcDb::kForWrite, false);
        if (status != Acad::eOk) return status;
        DictionaryEntry entry;
        if (DictionaryReader(dictionary->tags()).next(entry)) return Acad::eContainerNotEmpty;
    }
    std::string text(content.tags());
    setExtensionDictionary(text, 0);
    content.setTags(text);
    content.releasedLater = false;
    if (dictionary != nullptr && dictionary->owner == content.self) eraseWithOwned(*dictionary);
    return Acad::eOk;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    const ObjectBody& content = body();
    if (content.store == nullptr) return {};
    const std::uint64_t handle = extensionDictionaryHandle(content.tags());
    const ObjectBody* const dictionary = content.store->byHandle(handle);
    return dictionary != nullptr ? content.store->idOf(*dictionary) : AcDbObjectId();
}
