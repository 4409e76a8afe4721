// Database objects: who they are, erasing, extension dictionaries.
#include "host/content/dictionary_text.h"
#include "host/content/paper_viewport.h"
#include "host/control/faults.h"
#include "host/objects/erasing.h"
#include "host/objects/opening.h"
#include "host/store/body_text.h"
#include "host/store/store.h"

AcDbObjectId AcDbObject::objectId() const {
    const host::ObjectBody& content = body();
    return content.store != nullptr ? content.store->idOf(content) : AcDbObjectId();
}

AcDbObjectId AcDbObject::ownerId() const {
    const host::ObjectBody& content = body();
    return content.store != nullptr ? content.store->idOf(content.owner) : AcDbObjectId();
}

void AcDbObject::getAcDbHandle(AcDbHandle& handle) const { handle = AcDbHandle(body().handle); }

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
    if (host::callFails("AcDbObject::erase")) return Acad::eCannotBeErasedByCaller;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (!erasing) return Acad::eNotApplicable;
    if (content.erased) return Acad::eWasErased;
    if (host::isPaperViewport(content)) return Acad::eCannotBeErasedByCaller;
    host::ObjectBody& owner = content.store->at(content.owner);
    if (owner.kind == host::Kind::Dictionary) host::removeEntry(owner, content.handle);
    host::eraseWithOwned(content);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (host::callFails("AcDbObject::createExtensionDictionary")) return Acad::eOutOfMemory;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (host::extensionDictionaryHandle(content.tags()) != 0) return Acad::eAlreadyInDb;
    host::Store& store = *content.store;
    host::ObjectBody fresh;
    fresh.kind = host::Kind::Dictionary;
    host::placeText(fresh, host::newDictionaryText(true));
    host::ObjectBody& dictionary = store.duplicate(fresh, content.self);
    store.appendChild(store.objectsList(), dictionary);
    std::string text(content.tags());
    host::setExtensionDictionary(text, dictionary.handle);
    content.setTags(text);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary() {
    if (host::callFails("AcDbObject::releaseExtensionDictionary")) return Acad::eWasOpenForWrite;
    host::ObjectBody& content = body();
    if (!content.openForWrite) return Acad::eNotOpenForWrite;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    const std::uint64_t handle = host::extensionDictionaryHandle(content.tags());
    if (handle == 0) return Acad::eKeyNotFound;
    host::ObjectBody* const dictionary = content.store->byHandle(handle);
    if (dictionary != nullptr) {
        const Acad::ErrorStatus status = host::mayOpen(*dictionary, AcDb::kForWrite, false);
        if (status != Acad::eOk) return status;
        host::DictionaryEntry entry;
        if (host::DictionaryReader(dictionary->tags()).next(entry)) return Acad::eContainerNotEmpty;
    }
    std::string text(content.tags());
    host::setExtensionDictionary(text, 0);
    content.setTags(text);
    content.releasedLater = false;
    if (dictionary != nullptr && dictionary->owner == content.self)
        host::eraseWithOwned(*dictionary);
    return Acad::eOk;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    const host::ObjectBody& content = body();
    if (content.store == nullptr) return {};
    const std::uint64_t handle = host::extensionDictionaryHandle(content.tags());
    const host::ObjectBody* const dictionary = content.store->byHandle(handle);
    return dictionary != nullptr ? content.store->idOf(*dictionary) : AcDbObjectId();
}
