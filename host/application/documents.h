// The open documents: their list, the current one, and their notifications.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/editor/state/document_state.h"
#include "host/editor/state/reactor_list.h"
#include "host/objectarx/database.h"
#include "host/objectarx/documents.h"
#include "host/scripting/lisp_table.h"
#include "host/store/store.h"

namespace host {

/// One open drawing with all that the host keeps for it.
class HostDocument : public AcApDocument {
  public:
    /// An empty path means that the drawing has no file yet; it is then shown as `title`.
    HostDocument(std::unique_ptr<AcDbDatabase> database, std::wstring path, std::wstring title);

    AcDbDatabase* database() const override { return m_database.get(); }
    const ACHAR* fileName() const override {
        return m_path.empty() ? m_title.c_str() : m_path.c_str();
    }

    const std::wstring& path() const { return m_path; }
    void setPath(std::wstring path) {
        m_path = std::move(path);
        state.fileName = fileName();
    }

    /// True when the drawing was changed since it was opened or last saved under its own name.
    bool changed() const { return m_database->store().revision != m_savedRevision; }
    void noteSaved() { m_savedRevision = m_database->store().revision; }

    DocumentState state;
    LispTable lisp;

  private:
    std::unique_ptr<AcDbDatabase> m_database;
    std::wstring m_path;
    std::wstring m_title;
    std::uint64_t m_savedRevision = 0;
};

/// All open documents in opening order. Tells the document reactors what happens, with the
/// accounting around each notification.
class Documents {
  public:
    Documents() = default;
    ~Documents();
    Documents(const Documents&) = delete;
    Documents& operator=(const Documents&) = delete;

    /// Adds a document and notifies documentCreated; it does not become current.
    HostDocument& add(std::unique_ptr<AcDbDatabase> database, std::wstring path);
    /// Makes a document (or, with null, none) current: editor state, working database,
    /// documentBecameCurrent. Nothing happens when it is current already.
    void setCurrent(HostDocument* document);
    HostDocument* current() const { return m_current; }
    /// Notifies documentToBeDestroyed; the document and its database still exist.
    void announceDestruction(HostDocument& document);
    /// Destroys a document. Its memory is the next document's; see documents.cpp.
    void destroy(HostDocument& document);

    std::size_t count() const { return m_documents.size(); }
    HostDocument* at(std::size_t index) const;
    const std::vector<HostDocument*>& all() const { return m_documents; }
    /// Open document with this path, or null.
    HostDocument* withPath(const std::wstring& path) const;

  private:
    std::vector<HostDocument*> m_documents;
    HostDocument* m_current = nullptr;
    int m_untitled = 0;
};

/// The attached document reactors.
ReactorList<AcApDocManagerReactor>& documentReactors();

}  // namespace host
