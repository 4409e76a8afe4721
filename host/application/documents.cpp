// The open documents, and the document manager as modules see it.
#include "host/application/documents.h"

#include <algorithm>
#include <new>

#include "host/application/session.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/guarded_call.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Memory of closed documents, last closed first out. The real host re-uses the addresses of closed
/// documents, so this one does so every time: a module that keeps a pointer beyond
/// documentToBeDestroyed then meets another drawing's data at once.
class DocumentMemory {
  public:
    ~DocumentMemory() {
        for (void* block : m_free)
            ::operator delete(block);
    }
    void* take() {
        if (m_free.empty()) return ::operator new(sizeof(HostDocument));
        void* block = m_free.back();
        m_free.pop_back();
        return block;
    }
    void giveBack(void* block) { m_free.push_back(block); }

  private:
    std::vector<void*> m_free;
};

DocumentMemory& documentMemory() {
    static DocumentMemory memory;
    return memory;
}

using DocumentEvent = void (AcApDocManagerReactor::*)(AcApDocument*);

/// Sends one event to every reactor that is still attached when its turn comes.
void notify(DocumentEvent event, const char* name, HostDocument& document) {
    recordEffect(EffectKind::Notification, fromUtf8(name) + L" " + document.fileName());
    documentReactors().forEach([&](AcApDocManagerReactor& reactor) {
        guardedCall(name, [&] { (reactor.*event)(&document); });
    });
}

}  // namespace

HostDocument::HostDocument(std::unique_ptr<AcDbDatabase> database, std::wstring path,
                           std::wstring title)
    : m_database(std::move(database)), m_path(std::move(path)), m_title(std::move(title)) {
    state.database = m_database.get();
    state.fileName = fileName();
    noteSaved();
}

Documents::~Documents() {
    setCurrent(nullptr);
    while (!m_documents.empty())
        destroy(*m_documents.back());
}

HostDocument& Documents::add(std::unique_ptr<AcDbDatabase> database, std::wstring path) {
    std::wstring title;
    if (path.empty()) title = L"Drawing" + std::to_wstring(++m_untitled) + L".dxf";
    m_documents.reserve(m_documents.size() + 1);
    void* memory = documentMemory().take();
    auto* document =
        ::new (memory) HostDocument(std::move(database), std::move(path), std::move(title));
    m_documents.push_back(document);
    notify(&AcApDocManagerReactor::documentCreated, "documentCreated", *document);
    return *document;
}

void Documents::setCurrent(HostDocument* document) {
    if (document == m_current) return;
    m_current = document;
    setCurrentDocumentState(document != nullptr ? &document->state : nullptr);
    acdbHostApplicationServices()->setWorkingDatabase(document != nullptr ? document->database()
                                                                          : nullptr);
    if (document != nullptr) {
        notify(&AcApDocManagerReactor::documentBecameCurrent, "documentBecameCurrent", *document);
    }
}

void Documents::announceDestruction(HostDocument& document) {
    notify(&AcApDocManagerReactor::documentToBeDestroyed, "documentToBeDestroyed", document);
}

void Documents::destroy(HostDocument& document) {
    if (m_current == &document) setCurrent(nullptr);
    m_documents.erase(std::find(m_documents.begin(), m_documents.end(), &document));
    document.~HostDocument();
    documentMemory().giveBack(&document);
}

HostDocument* Documents::at(std::size_t index) const {
    return index < m_documents.size() ? m_documents[index] : nullptr;
}

HostDocument* Documents::withPath(const std::wstring& path) const {
    for (HostDocument* document : m_documents) {
        if (!path.empty() && document->path() == path) return document;
    }
    return nullptr;
}

/// Never destroyed: reactors of a module may be deleted while the process ends.
ReactorList<AcApDocManagerReactor>& documentReactors() {
    static auto& attached = *new ReactorList<AcApDocManagerReactor>;
    return attached;
}

}  // namespace host

AcDbDatabase* AcApDocument::database() const { return nullptr; }
const ACHAR* AcApDocument::fileName() const { return L""; }

AcApDocManagerReactor::~AcApDocManagerReactor() {
    if (!host::documentReactors().contains(this)) return;
    host::documentReactors().detach(this);
    host::reportModuleFault("a document reactor was deleted while it was attached");
}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}

AcApDocument* AcApDocManager::curDocument() const {
    host::Session* session = host::currentSession();
    return session == nullptr ? nullptr : session->documents.current();
}

void AcApDocManager::addReactor(AcApDocManagerReactor* reactor) {
    if (reactor == nullptr) {
        host::reportModuleFault("AcApDocManager::addReactor: null reactor");
        return;
    }
    host::recordEffect(host::EffectKind::Registration, L"AcApDocManager::addReactor");
    host::documentReactors().attach(reactor);
}

void AcApDocManager::removeReactor(AcApDocManagerReactor* reactor) {
    host::recordEffect(host::EffectKind::Registration, L"AcApDocManager::removeReactor");
    host::documentReactors().detach(reactor);
}

AcApDocManager* acDocManagerPtr() {
    static AcApDocManager manager;
    return &manager;
}
