// The session: start and end of the host, documents and modules together.
#include "host/application/session.h"

#include <utility>

#include "host/application/session_impl.h"
#include "host/commands/commands.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/control/switches.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/load/load_drawing.h"
#include "host/dxf/save/save_drawing.h"
#include "host/editor/run/editor_services.h"
#include "host/editor/state/active_command.h"
#include "host/editor/state/menus.h"
#include "host/editor/state/notify.h"
#include "host/editor/state/sysvars.h"
#include "host/objects/system_registry.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

Session* theSession = nullptr;

/// Progress of a load or save as the session's receiver takes it.
ProgressFunction progressOf(const Session::Impl& session, const std::string& what) {
    if (!session.progress) return {};
    return [&session, what](double done) {
        return session.progress(what.c_str(), static_cast<int>(done * 100.0));
    };
}

}  // namespace

Session* currentSession() { return theSession; }

Session::Session() : m_impl(std::make_unique<Impl>()) {
    theSession = this;
    switches() = Switches();
    setFaultPlan({});
    resetEditor();
    resetSysvars();
    resetMenus();
    detachAllDocumentReactors();
    registerEditorServices();
    registerService(L"DynamicLinker", &dynamicLinker());
    for (const CommandTable* commands :
         {&kFigureCommands, &kSelectionCommands, &kTransformCommands, &kClipboardCommands,
          &kUndoCommands, &kInquiryCommands, &kSettingCommands, &kViewCommands, &kDocumentCommands,
          &kModuleCommands, &kHelpCommands})
        registerBuiltins(*commands);
    dropClipboard();
    clearEffects();
    clearModuleFaults();
    m_impl->heldAtStart = heldNow();
}

Session::~Session() {
    m_impl->shutDown();
    dropClipboard();
    resetEditor();
    checkNothingLeaked(m_impl->heldAtStart, "the end of the session");
    detachAllDocumentReactors();
    registerService(L"DynamicLinker", nullptr);
    if (theSession == this) theSession = nullptr;
}

void Session::Impl::activate(HostDocument& document) {
    documents.setCurrent(&document);
    modules.documentActivated(document);
}

Outcome Session::Impl::addDocument(std::unique_ptr<AcDbDatabase> database, std::wstring path) {
    HostDocument& document = documents.add(std::move(database), std::move(path));
    afterCommand([this, &document] { activate(document); });
    return {};
}

Outcome Session::Impl::mayAddDocument() const {
    const Module* single = documents.count() > 0 ? modules.withoutMdi() : nullptr;
    if (single == nullptr) return {};
    return {single->name +
            " does not work with several drawings: close the open drawing or unload " +
            single->name};
}

void Session::Impl::close(HostDocument& document) {
    documents.setCurrent(&document);
    if (switches().unloadMessageFirst) modules.documentClosing(document);
    documents.announceDestruction(document);
    if (!switches().unloadMessageFirst) modules.documentClosing(document);
    documents.destroy(document);
}

Outcome Session::Impl::save(const std::string& path, bool keepName) {
    HostDocument* document = documents.current();
    if (document == nullptr) return {"no drawing is open", kUnwritable};
    const std::wstring target = path.empty() ? document->path() : fromUtf8(absolutePath(path));
    if (target.empty()) return {"the drawing has no name yet: save it with SAVEAS", kUnwritable};
    const HostDocument* holder = documents.withPath(target);
    if (holder != nullptr && holder != document) {
        return {toUtf8(target) + ": open as another drawing; choose another name or close that one",
                kUnwritable};
    }
    if (const std::string backup = backupPath(toUtf8(target));
        documents.withPath(fromUtf8(backup)) != nullptr) {
        return {backup + ": open, and the former content of " + toUtf8(target) +
                    " would be kept there; close it or choose another name",
                kUnwritable};
    }
    modules.sendToAll(AcRx::kSaveMsg);
    notifyBeginSave(document->database(), target);
    DxfError error;
    const std::string file = toUtf8(target);
    const std::string what = "Saving " + file;
    const std::string place = withoutLinks(file);
    SaveOptions options{progressOf(*this, what)};
    if (saved.count(place) != 0) options.former = FormerFile::Replaced;
    if (place == stagedFor) options.staged = staged;
    const bool leavesNames = options.staged.empty() && hasOtherNames(place);
    if (!host::saveDrawing(document->database()->store(), file, error, options)) {
        return {error.message(), kUnwritable};
    }
    if (leavesNames) printLine(target + L" had other names (hard links); they keep what it held.");
    saved.insert(place);
    if (!keepName || document->path().empty()) document->setPath(target);
    if (document->path() == target) document->noteSaved();
    notifySaveComplete(document->database(), target);
    return {};
}

void Session::Impl::shutDown() {
    if (documents.current() != nullptr) modules.sendToAll(AcRx::kPreQuitMsg);
    while (documents.count() > 0)
        close(*documents.at(0));
    modules.quit();
}

Outcome Session::newDrawing() {
    if (const Outcome refused = m_impl->mayAddDocument(); !refused) return refused;
    if (m_impl->documents.current() != nullptr) m_impl->modules.sendToAll(AcRx::kSaveMsg);
    return m_impl->addDocument(std::make_unique<AcDbDatabase>(host::newDrawing()), {});
}

Outcome Session::openDrawing(const std::string& path, const std::string& target) {
    if (const Outcome refused = m_impl->mayAddDocument(); !refused) return refused;
    const std::wstring file = fromUtf8(absolutePath(path));
    if (m_impl->documents.withPath(file) != nullptr) return {path + ": open already", kUnreadable};
    DxfError error;
    std::unique_ptr<Store> store = loadDrawing(path, error, progressOf(*m_impl, "Loading " + path));
    if (store == nullptr) return {error.message(), kUnreadable};
    if (m_impl->documents.current() != nullptr) m_impl->modules.sendToAll(AcRx::kSaveMsg);
    return m_impl->addDocument(std::make_unique<AcDbDatabase>(std::move(store)),
                               target.empty() ? file : fromUtf8(absolutePath(target)));
}

Outcome Session::saveDrawing(const std::string& path) { return m_impl->save(path, false); }

void Session::stageSaves(const std::string& path, const std::string& staged) {
    m_impl->stagedFor = withoutLinks(absolutePath(path));
    m_impl->staged = staged;
}

Outcome Session::closeDrawing() {
    HostDocument* document = m_impl->documents.current();
    if (document == nullptr) return {"no drawing is open"};
    afterCommand([impl = m_impl.get(), document] {
        impl->close(*document);
        const std::size_t left = impl->documents.count();
        if (left > 0) impl->activate(*impl->documents.at(left - 1));
    });
    return {};
}

Outcome Session::activate(std::size_t index) {
    HostDocument* document = m_impl->documents.at(index);
    if (document == nullptr) {
        return {"drawing " + std::to_string(index) + " is not open: there are " +
                std::to_string(documentCount())};
    }
    m_impl->activate(*document);
    return {};
}

std::size_t Session::documentCount() const { return m_impl->documents.count(); }

AcApDocument* Session::document(std::size_t index) const { return m_impl->documents.at(index); }

AcDbDatabase* Session::database() const {
    const HostDocument* document = m_impl->documents.current();
    return document != nullptr ? document->database() : nullptr;
}

Outcome Session::loadModule(const std::string& path) { return m_impl->modules.load(path); }

Outcome Session::unloadModule(const std::string& name) { return m_impl->modules.unload(name); }

std::vector<std::string> Session::modules() const {
    std::vector<std::string> names;
    for (const auto& module : m_impl->modules.all())
        names.push_back(module->name);
    return names;
}

int Session::sendMessage(const std::string& name, int message) {
    Module* module = m_impl->modules.find(name);
    if (module == nullptr) return AcRx::kRetError;
    const int answer = m_impl->modules.send(*module, static_cast<AcRx::AppMsgCode>(message));
    m_impl->modules.unloadRefusing();
    return answer;
}

void Session::setProgress(std::function<bool(const char*, int)> progress) {
    m_impl->progress = std::move(progress);
}

void Session::setDiagnostics(std::function<void(const std::string&)> diagnostics) {
    m_impl->diagnostics = std::move(diagnostics);
}

ExitStatus Session::exitStatus() const { return m_impl->exitStatus; }

}  // namespace host
