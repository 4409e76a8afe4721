// Opening and closing: the rules, the ledger, and the views that were closed.
#include "host/objects/opening.h"

#include <array>
#include <unordered_set>

#include "host/control/accounting.h"
#include "host/control/faults.h"
#include "host/objects/class_table.h"
#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/store/store_memory.h"
#include "host/tags/tags.h"

namespace host {

namespace {

constexpr int kMaxReaders = 256;

/// What every closed view stands for: nothing that could be read or changed.
ObjectBody& closedBody() {
    static ObjectBody& body = *new ObjectBody;
    return body;
}

/// Objects made with `new` that joined no database yet.
std::unordered_set<const ObjectBody*>& freshBodies() {
    static auto& bodies = *new std::unordered_set<const ObjectBody*>;
    return bodies;
}

/// The views closed last. They live at least until as many others were closed.
class ClosedViews {
  public:
    void add(AcDbObject& view, AcDbObjectId id, std::uint64_t handle) {
        ViewAccess::bodyOf(view) = &closedBody();
        Entry& entry = m_entries[m_next];
        m_next = (m_next + 1) % m_entries.size();
        destroy(entry);
        entry = {&view, id, handle};
    }
    /// The module deletes a view itself.
    void forget(const AcDbObject& view) {
        if (Entry* const entry = find(view)) *entry = {};
    }
    std::string describeView(const AcDbObject& view) {
        const Entry* const entry = find(view);
        if (entry == nullptr) return "an object";
        const ObjectBody* const body = Store::resolve(entry->id);
        return body != nullptr ? describe(*body) : "object " + formatHandle(entry->handle);
    }

  private:
    struct Entry {
        AcDbObject* view = nullptr;
        AcDbObjectId id;
        std::uint64_t handle = 0;
    };
    Entry* find(const AcDbObject& view) {
        for (Entry& entry : m_entries)
            if (entry.view == &view) return &entry;
        return nullptr;
    }
    static void destroy(Entry& entry) {
        if (entry.view == nullptr) return;
        ViewAccess::bodyOf(*entry.view) = nullptr;  // tells the destructor whose deletion it is
        delete entry.view;
        entry.view = nullptr;
    }

    std::array<Entry, 4096> m_entries;
    std::size_t m_next = 0;
};

ClosedViews& closedViews() {
    static ClosedViews& views = *new ClosedViews;
    return views;
}

int openings(const ObjectBody& body) { return body.readers + (body.openForWrite ? 1 : 0); }

/// Forgets every opening of a body; its view stays.
void dropOpenings(ObjectBody& body) {
    for (int count = openings(body); count > 0; --count)
        countReturned(Held::Object);
    body.readers = 0;
    body.openForWrite = false;
}

void retireView(ObjectBody& body) {
    AcDbObject& view = *body.view;
    body.view = nullptr;
    closedViews().add(view, body.store->idOf(body), body.handle);
}

void listOpenings(const ObjectBody& body, std::vector<std::string>& lines) {
    for (int reader = 0; reader < body.readers; ++reader)
        lines.push_back(describe(body) + " open for read");
    if (body.openForWrite) lines.push_back(describe(body) + " open for write");
}

void listHeld(std::vector<std::string>& lines) {
    for (const Store* store : storesBySerial())
        for (Index index = 1; store != nullptr && index <= store->count(); ++index)
            if (store->at(index).view != nullptr) listOpenings(store->at(index), lines);
    for (const ObjectBody* body : freshBodies())
        lines.push_back("new " + describe(*body) + " neither deleted nor added to a database");
}

void takeObject() {
    static const bool listed = (addHeldLister(listHeld), true);
    static_cast<void>(listed);
    countHeld(Held::Object);
}

/// True for a view that was closed.
bool isClosed(const AcDbObject& view) { return ViewAccess::bodyOf(view) == &closedBody(); }

}  // namespace

std::string describe(const ObjectBody& body) {
    std::string text(body.type());
    if (text.empty()) text = "object";
    return body.handle != 0 ? text + " " + formatHandle(body.handle) : text;
}

ObjectBody* freshBody(Kind kind, const std::string& text) {
    auto body = std::make_unique<ObjectBody>();
    body->kind = kind;
    body->openForWrite = true;
    placeText(*body, text);
    freshBodies().insert(body.get());
    takeObject();
    return body.release();
}

void abandonOpenings(Store& store) {
    for (Index index = 1; index <= store.count(); ++index) {
        ObjectBody& body = store.at(index);
        if (body.view == nullptr) continue;
        std::vector<std::string> lines;
        listOpenings(body, lines);
        for (const std::string& line : lines)
            reportModuleFault("closing the drawing: " + line + "; close it before");
        dropOpenings(body);
        retireView(body);
    }
}

ObjectBody* bodyOfId(AcDbObjectId id, const char* call) {
    ObjectBody* const body = Store::resolve(id);
    if (body == nullptr && !id.isNull())
        reportModuleFault(std::string(call) +
                          ": the id is stale, its drawing was closed; fetch ids anew");
    return body;
}

Acad::ErrorStatus mayOpen(const ObjectBody& body, AcDb::OpenMode mode, bool openErased) {
    if (body.erased && !openErased) return Acad::eWasErased;
    if (body.openForWrite) return Acad::eWasOpenForWrite;
    if (mode == AcDb::kForRead)
        return body.readers == kMaxReaders ? Acad::eAtMaxReaders : Acad::eOk;
    if (body.readers != 0) return Acad::eWasOpenForRead;
    return isEntityKind(body.kind) && body.store->onLockedLayer(body) ? Acad::eOnLockedLayer
                                                                      : Acad::eOk;
}

Acad::ErrorStatus openBody(AcDbObject*& object, ObjectBody& body, AcDb::OpenMode mode) {
    object = nullptr;
    const Acad::ErrorStatus status = mayOpen(body, mode, false);
    if (status != Acad::eOk) return status;
    if (body.view == nullptr) makeView(body);
    if (mode == AcDb::kForRead) ++body.readers;
    if (mode == AcDb::kForWrite) body.openForWrite = true;
    takeObject();
    object = body.view;
    return Acad::eOk;
}

Acad::ErrorStatus makeResident(AcDbObject& object, Store& store, Index owner) {
    ObjectBody& body = object.body();
    if (isClosed(object)) return Acad::eInvalidOpenState;
    if (body.store != nullptr) return Acad::eAlreadyInDb;
    ObjectBody& resident = store.adopt(body, owner);
    freshBodies().erase(&body);
    resident.view = &object;
    ViewAccess::bodyOf(object) = &resident;
    body.view = nullptr;
    delete &body;
    return Acad::eOk;
}

}  // namespace host

using namespace host;

AcDbObject::AcDbObject(ObjectBody* content) : m_body(content) { m_body->view = this; }

AcDbObject::~AcDbObject() {
    if (m_body == nullptr) return;
    if (isClosed(*this)) {
        reportModuleFault("delete: " + closedViews().describeView(*this) +
                          " was closed; the pointer is no longer the caller's");
        closedViews().forget(*this);
    } else if (m_body->store == nullptr) {
        freshBodies().erase(m_body);
        countReturned(Held::Object);
        delete m_body;
    } else {
        reportModuleFault("delete: " + describe(*m_body) + " is in a database; close it instead");
        dropOpenings(*m_body);
        m_body->view = nullptr;
    }
}

ObjectBody& AcDbObject::body() const {
    if (isClosed(*this))
        reportModuleFault("use of " + closedViews().describeView(*this) + " after it was closed");
    return *m_body;
}

Acad::ErrorStatus AcDbObject::close() {
    if (isClosed(*this)) {
        reportModuleFault("AcDbObject::close: " + closedViews().describeView(*this) +
                          " is not open");
        return Acad::eInvalidOpenState;
    }
    ObjectBody& content = *m_body;
    if (content.store == nullptr) return Acad::eNotInDatabase;
    if (content.openForWrite)
        content.openForWrite = false;
    else
        --content.readers;
    countReturned(Held::Object);
    if (openings(content) == 0) retireView(content);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    if (callFails("AcDbObject::upgradeOpen")) return Acad::eHadMultipleReaders;
    ObjectBody& content = body();
    if (content.openForWrite) return Acad::eWasOpenForWrite;
    if (content.readers == 0) return Acad::eNotOpenForRead;
    if (content.readers > 1) return Acad::eHadMultipleReaders;
    if (isEntityKind(content.kind) && content.store->onLockedLayer(content))
        return Acad::eOnLockedLayer;
    content.readers = 0;
    content.openForWrite = true;
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode) {
    object = nullptr;
    if (callFails("acdbOpenObject")) return Acad::eWasOpenForWrite;
    if (id.isNull()) return Acad::eNullObjectId;
    ObjectBody* const content = bodyOfId(id, "acdbOpenObject");
    if (content == nullptr) return Acad::eInvalidInput;
    return openBody(object, *content, mode);
}
