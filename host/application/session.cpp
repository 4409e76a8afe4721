// The session: start and end of the host, documents and modules together.
#include "host/application/session.h"

#include <filesystem>
#include <utility>

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
ProgressFunction progressOf(const Session& session, const std::string& what) {
    if (!session.progress) return {};
    return [&session, what](double done) { return session.progress(what, done); };
}

/// Where the work on a drawing goes when the program is ended.
std::string rescuePath(const HostDocument& document) {
    std::filesystem::path path = pathFromUtf8(absolutePath(toUtf8(document.fileName())));
    path.replace_extension(".recovered.dxf");
    return utf8OfPath(path);
}

}  // namespace

Session* currentSession() { return theSession; }

Session::Session() {
    theSession = this;
    switches() = Switches();
    setFaultPlan({});
    resetEditor();
    resetSysvars();
    resetMenus();
    documentReactors().detachAll();
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
    m_heldAtStart = heldNow();
}

Session::~Session() {
    if (documents.current() != nullptr) modules.sendToAll(AcRx::kPreQuitMsg);
    while (documents.count() > 0)
        close(*documents.at(0));
    modules.quit();
    dropClipboard();
    resetEditor();
    checkNothingLeaked(m_heldAtStart, "the end of the session");
    documentReactors().detachAll();
    registerService(L"DynamicLinker", nullptr);
    if (theSession == this) theSession = nullptr;
}

void Session::activate(HostDocument& document) {
    documents.setCurrent(&document);
    modules.documentActivated(document);
}

Outcome Session::addDocument(std::unique_ptr<AcDbDatabase> database, std::wstring path) {
    HostDocument& document = documents.add(std::move(database), std::move(path));
    const std::string rescued = rescuePath(document);
    if (placeOf(rescued) == FilePlace::File) {
        printLine(fromUtf8(rescued) + L" keeps work on this drawing that was not saved when the " +
                  L"program was ended; OPEN it, or remove it.");
    }
    afterCommand([this, &document] { activate(document); });
    return {};
}

Outcome Session::mayAddDocument() const {
    const Module* single = documents.count() > 0 ? modules.withoutMdi() : nullptr;
    if (single == nullptr) return {};
    return {single->name +
            " does not work with several drawings: close the open drawing or unload " +
            single->name};
}

void Session::close(HostDocument& document) {
    documents.setCurrent(&document);
    if (switches().unloadMessageFirst) modules.documentClosing(document);
    documents.announceDestruction(document);
    if (!switches().unloadMessageFirst) modules.documentClosing(document);
    documents.destroy(document);
}

Outcome Session::saveDrawing(const std::string& path, bool keepName) {
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
    if (m_saved.count(place) != 0) options.former = FormerFile::Replaced;
    if (place == m_stagedFor) options.staged = m_staged;
    const bool leavesNames = options.staged.empty() && hasOtherNames(place);
    if (!host::saveDrawing(document->database()->store(), file, error, options)) {
        return {error.message(), kUnwritable};
    }
    if (leavesNames) printLine(target + L" had other names (hard links); they keep what it held.");
    m_saved.insert(place);
    if (!keepName || document->path().empty()) document->setPath(target);
    if (document->path() == target) document->noteSaved();
    notifySaveComplete(document->database(), target);
    return {};
}

Outcome Session::newDrawing() {
    if (const Outcome refused = mayAddDocument(); !refused) return refused;
    if (documents.current() != nullptr) modules.sendToAll(AcRx::kSaveMsg);
    return addDocument(std::make_unique<AcDbDatabase>(host::newDrawing()), {});
}

Outcome Session::openDrawing(const std::string& path, const std::string& target) {
    if (const Outcome refused = mayAddDocument(); !refused) return refused;
    const std::wstring file = fromUtf8(absolutePath(path));
    if (documents.withPath(file) != nullptr) return {path + ": open already", kUnreadable};
    DxfError error;
    std::unique_ptr<Store> store = loadDrawing(path, error, progressOf(*this, "Loading " + path));
    if (store == nullptr) return {error.message(), kUnreadable};
    if (documents.current() != nullptr) modules.sendToAll(AcRx::kSaveMsg);
    return addDocument(std::make_unique<AcDbDatabase>(std::move(store)),
                       target.empty() ? file : fromUtf8(absolutePath(target)));
}

void Session::stageSaves(const std::string& path, const std::string& staged) {
    m_stagedFor = withoutLinks(absolutePath(path));
    m_staged = staged;
}

std::vector<std::string> Session::rescueDrawings() {
    std::vector<std::string> lines;
    for (HostDocument* document : documents.all()) {
        if (!document->changed()) continue;
        const std::string path = rescuePath(*document);
        DxfError error;
        const bool saved = host::saveDrawing(document->database()->store(), path, error);
        lines.push_back(toUtf8(document->fileName()) + ": not saved; " +
                        (saved ? "its state is kept as " + path : error.message()));
    }
    return lines;
}

Outcome Session::closeDrawing() {
    HostDocument* document = documents.current();
    if (document == nullptr) return {"no drawing is open"};
    afterCommand([this, document] {
        close(*document);
        const std::size_t left = documents.count();
        if (left > 0) activate(*documents.at(left - 1));
    });
    return {};
}

AcDbDatabase* Session::database() const {
    const HostDocument* document = documents.current();
    return document != nullptr ? document->database() : nullptr;
}

int Session::sendMessage(const std::string& name, int message) {
    Module* module = modules.find(name);
    if (module == nullptr) return AcRx::kRetError;
    const int answer = modules.send(*module, static_cast<AcRx::AppMsgCode>(message));
    modules.unloadRefusing();
    return answer;
}

}  // namespace host
