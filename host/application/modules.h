// Loaded applications: their messages, locks, and what they must leave behind: nothing.
#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/application/exit_status.h"
#include "host/application/module_library.h"
#include "host/objectarx/runtime.h"

class AcApDocument;

namespace host {

class Documents;
class HostDocument;

/// One application. Its address is the opaque identity that it gets as `pkt`.
class Module {
  public:
    using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

    std::string path;  ///< absolute
    std::string name;  ///< file name
    ModuleLibrary library;
    EntryPoint entry = nullptr;
    bool locked = true;     ///< applications start locked
    bool mdiAware = false;  ///< works with several open drawings
    bool unloading = false;
    std::set<const AcApDocument*> documents;  ///< those it got kLoadDwgMsg for
};

/// The applications of the session in loading order.
class Modules {
  public:
    explicit Modules(Documents& documents) : m_documents(documents) {}

    /// Loads an application: kInitAppMsg, then kLoadDwgMsg for each open document.
    Outcome load(const std::string& path);
    /// Unloads it, by file name without regard to case: kUnloadDwgMsg for each of its documents,
    /// kUnloadAppMsg. Refused for a locked one.
    Outcome unload(const std::string& name);
    /// Sends kLoadDwgMsg for the current document to every application that has not had it.
    void documentActivated(HostDocument& document);
    /// Sends kUnloadDwgMsg for the current document, in reverse order of loading.
    void documentClosing(HostDocument& document);
    /// Sends a message to all, in reverse order of loading.
    void sendToAll(AcRx::AppMsgCode message);
    /// Unloads the applications that answered kRetError to a message.
    void unloadRefusing();
    /// kUnloadAppMsg to all, locked or not, in reverse order, and closes the libraries.
    void quit();

    /// Sends one message to a module.
    int send(Module& module, AcRx::AppMsgCode message);
    Module* find(const std::string& name) const;
    /// The module with this identity, or null.
    Module* identified(const void* pkt) const;
    /// The module whose code called last: the one being called by the host, or the one whose
    /// library holds `address`, or the only one; else null.
    Module* caller(const void* address = nullptr) const;
    /// A module that keeps further documents from being opened, or null.
    const Module* withoutMdi() const;
    const std::vector<std::unique_ptr<Module>>& all() const { return m_modules; }

    /// Runs code of a module, which is the one being called meanwhile, with the accounting behind
    /// it.
    void call(Module& module, const std::string& where, const std::function<void()>& code);
    /// The message being handled, or kNullMsg.
    AcRx::AppMsgCode message() const { return m_message; }

  private:
    Outcome start(std::unique_ptr<Module> module);
    Outcome refuse(Module& module, const std::string& reason);
    void sendLoadDrawing(Module& module, HostDocument& document);
    void sendUnloadDrawings(Module& module);
    /// kUnloadDwgMsg for each of its documents, kUnloadAppMsg, the search for leftovers, and the
    /// closing of the library.
    void remove(Module& module);
    /// Reports and removes what the module left registered: nothing may point into its library.
    void clearLeftovers(Module& module);

    Documents& m_documents;
    std::vector<std::unique_ptr<Module>> m_modules;
    Module* m_called = nullptr;
    AcRx::AppMsgCode m_message = AcRx::kNullMsg;
    std::vector<Module*> m_refusing;  ///< answered kRetError and are to go
};

/// Name of a message as the interface writes it: "kLoadDwgMsg".
std::string messageName(AcRx::AppMsgCode message);
/// The session's dynamic linker, for the system registry.
AcRxDynamicLinker& dynamicLinker();

}  // namespace host
