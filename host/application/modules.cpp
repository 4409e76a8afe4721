// Loading and unloading applications, and the order of their messages.
#include "host/application/modules.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "host/application/documents.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/control/guarded_call.h"
#include "host/control/scoped_value.h"
#include "host/control/switches.h"
#include "host/dxf/file/file_access.h"
#include "host/editor/run/command_stack.h"
#include "host/editor/state/notify.h"
#include "host/text/paths.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

constexpr int kInterfaceVersion = 19;

std::string fileNameOf(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

/// Why the file cannot be an application, before the system's loader sees it; empty when it may.
std::string fileProblem(const std::string& path) {
    const FilePlace place = placeOf(path);
    if (place == FilePlace::None) return "no such file";
    return place == FilePlace::Folder ? "a directory, not an application" : "";
}

/// Opens the library and finds its two functions; the reason when it is no application for us.
std::string openLibrary(Module& module) {
    const std::string problem = fileProblem(module.path);
    if (!problem.empty()) return problem;
    std::string reason;
    if (!module.library.open(module.path, reason)) {
        std::replace(reason.begin(), reason.end(), '\n', ' ');
        return "cannot be loaded: " + reason;
    }
    module.entry = reinterpret_cast<Module::EntryPoint>(module.library.symbol("acrxEntryPoint"));
    const auto version = reinterpret_cast<int (*)()>(module.library.symbol("acrxGetApiVersion"));
    if (module.entry == nullptr || version == nullptr) {
        return std::string("not an ObjectARX application: it does not export ") +
               (module.entry == nullptr ? "acrxEntryPoint" : "acrxGetApiVersion");
    }
    const int number = version();
    if (number >> 16 != kInterfaceVersion) {
        return "built for interface version " + std::to_string(number >> 16) + "." +
               std::to_string(number & 0xFFFF) + ", this host has version 19; rebuild it";
    }
    return {};
}

}  // namespace

std::string messageName(AcRx::AppMsgCode message) {
    static const char* const kNames[] = {
        "kNullMsg",       "kInitAppMsg",      "kUnloadAppMsg",    "kLoadDwgMsg", "kUnloadDwgMsg",
        "kInvkSubrMsg",   "kCfgMsg",          "kEndMsg",          "kQuitMsg",    "kSaveMsg",
        "kDependencyMsg", "kNoDependencyMsg", "kOleUnloadAppMsg", "kPreQuitMsg"};
    const auto number = static_cast<std::size_t>(message);
    if (number < std::size(kNames)) return kNames[number];
    return "message " + std::to_string(static_cast<int>(message));
}

int Modules::send(Module& module, AcRx::AppMsgCode message) {
    const std::string where = messageName(message) + " to " + module.name;
    recordEffect(EffectKind::Notification, fromUtf8(messageName(message) + " " + module.name));
    const ScopedValue<AcRx::AppMsgCode> handled(m_message, message);
    AcRx::AppRetCode answer = AcRx::kRetError;
    call(module, where, [&] { answer = module.entry(message, &module); });
    const bool mayRefuse = message != AcRx::kUnloadAppMsg && message != AcRx::kOleUnloadAppMsg &&
                           message != AcRx::kUnloadDwgMsg;
    if (answer == AcRx::kRetError && mayRefuse) m_refusing.push_back(&module);
    return answer;
}

void Modules::call(Module& module, const std::string& where, const std::function<void()>& code) {
    const ScopedValue<Module*> called(m_called, &module);
    guardedCall(where, code);
}

Outcome Modules::load(const std::string& path) {
    auto module = std::make_unique<Module>();
    module->path = absolutePath(path);
    module->name = fileNameOf(module->path);
    if (find(module->name) != nullptr) {
        return {path + ": " + module->name + " is loaded already; unload it first"};
    }
    const std::string problem = openLibrary(*module);
    if (!problem.empty()) return {path + ": " + problem};
    return start(std::move(module));
}

Outcome Modules::start(std::unique_ptr<Module> owned) {
    Module& module = *owned;
    m_modules.push_back(std::move(owned));
    send(module, AcRx::kInitAppMsg);
    if (!m_refusing.empty())
        return refuse(module, "the application answered kRetError to kInitAppMsg");
    if (!module.mdiAware && m_documents.count() > 1) {
        return refuse(module, "it is not registered for several documents; close all but one");
    }
    HostDocument* const current = m_documents.current();
    const std::vector<HostDocument*> open = m_documents.all();
    for (HostDocument* document : open) {
        if (!switches().loadMessageAtOnce && document != current) continue;
        m_documents.setCurrent(document);
        sendLoadDrawing(module, *document);
    }
    m_documents.setCurrent(current);
    if (!m_refusing.empty())
        return refuse(module, "the application answered kRetError to kLoadDwgMsg");
    return {};
}

Outcome Modules::refuse(Module& module, const std::string& reason) {
    m_refusing.clear();
    const std::string text = module.path + ": not loaded: " + reason;
    remove(module);
    return {text};
}

Outcome Modules::unload(const std::string& name) {
    Module* module = find(name);
    if (module == nullptr) {
        return {name + ": no such application is loaded; ARX ? lists the loaded ones"};
    }
    if (module->locked) {
        return {module->name + " is locked and cannot be unloaded while the host runs"};
    }
    if (module == m_called || module->unloading) {
        return {module->name + " is running and cannot be unloaded now"};
    }
    remove(*module);
    return {};
}

void Modules::sendLoadDrawing(Module& module, HostDocument& document) {
    if (!module.documents.insert(&document).second) return;
    send(module, AcRx::kLoadDwgMsg);
}

void Modules::sendUnloadDrawings(Module& module) {
    HostDocument* const current = m_documents.current();
    const std::vector<HostDocument*> open = m_documents.all();
    for (HostDocument* document : open) {
        if (module.documents.erase(document) == 0) continue;
        m_documents.setCurrent(document);
        send(module, AcRx::kUnloadDwgMsg);
    }
    m_documents.setCurrent(current);
}

void Modules::documentActivated(HostDocument& document) {
    for (std::size_t i = 0; i < m_modules.size(); ++i)
        sendLoadDrawing(*m_modules[i], document);
    unloadRefusing();
}

void Modules::documentClosing(HostDocument& document) {
    for (std::size_t i = m_modules.size(); i > 0; --i) {
        Module& module = *m_modules[i - 1];
        if (module.documents.erase(&document) != 0) send(module, AcRx::kUnloadDwgMsg);
        document.lisp.removeAllOf(&module);
    }
}

void Modules::sendToAll(AcRx::AppMsgCode message) {
    for (std::size_t i = m_modules.size(); i > 0; --i)
        send(*m_modules[i - 1], message);
    unloadRefusing();
}

void Modules::unloadRefusing() {
    while (!m_refusing.empty()) {
        Module* module = m_refusing.back();
        m_refusing.erase(std::remove(m_refusing.begin(), m_refusing.end(), module),
                         m_refusing.end());
        printLine(fromUtf8(module->name) + L" answered kRetError and is unloaded.");
        remove(*module);
    }
}

void Modules::quit() {
    m_refusing.clear();
    while (!m_modules.empty())
        remove(*m_modules.back());
}

void Modules::remove(Module& module) {
    sendUnloadDrawings(module);
    module.unloading = true;
    send(module, AcRx::kUnloadAppMsg);
    clearLeftovers(module);
    const auto at = std::find_if(m_modules.begin(), m_modules.end(),
                                 [&](const auto& each) { return each.get() == &module; });
    const std::unique_ptr<Module> last = std::move(*at);
    m_modules.erase(at);
    const HeldCounts before = heldNow();
    last->library.close();
    checkNothingLeaked(before, "the static destructors of " + last->name);
}

void Modules::clearLeftovers(Module& module) {
    const std::string where = "after kUnloadAppMsg to " + module.name + ": ";
    // A call that was made to fail is not the module's fault, and neither is what it left.
    const auto report = [&](const std::string& what) {
        if (faultsInjected() == 0) reportModuleFault(where + what);
    };
    const auto isInLibrary = [&](const void* address) { return module.library.contains(address); };
    for (const std::wstring& command : removeCommandsOf(isInLibrary))
        report("command " + toUtf8(command) + " is still registered");
    for (int left = documentReactors().detachOf(isInLibrary); left > 0; --left)
        report("a document reactor is still attached");
    for (int left = editorReactors().detachOf(isInLibrary); left > 0; --left)
        report("an editor reactor is still attached");
    for (HostDocument* document : m_documents.all()) {
        for (const std::wstring& name : document->lisp.namesOf(&module)) {
            report("LISP function " + toUtf8(name) + " is still defined in " +
                   toUtf8(document->fileName()));
        }
        document->lisp.removeAllOf(&module);
    }
}

Module* Modules::find(const std::string& name) const {
    const std::wstring wanted = foldCase(fromUtf8(fileNameOf(name)));
    for (const auto& module : m_modules) {
        if (foldCase(fromUtf8(module->name)) == wanted) return module.get();
    }
    return nullptr;
}

Module* Modules::identified(const void* pkt) const {
    for (const auto& module : m_modules) {
        if (module.get() == pkt) return module.get();
    }
    return nullptr;
}

Module* Modules::caller(const void* address) const {
    if (m_called != nullptr) return m_called;
    for (const auto& module : m_modules) {
        if (address != nullptr && module->library.contains(address)) return module.get();
    }
    return m_modules.size() == 1 ? m_modules.front().get() : nullptr;
}

const Module* Modules::withoutMdi() const {
    for (const auto& module : m_modules) {
        if (!module->mdiAware) return module.get();
    }
    return nullptr;
}

}  // namespace host
