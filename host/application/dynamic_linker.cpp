// The dynamic linker as modules see it: locks and the registration for several documents.
#include "host/application/session_impl.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"

namespace host {
namespace {

/// The module that an identity names; null, and a fault, when it names none.
Module* moduleOf(void* pkt, const char* call) {
    Session* session = currentSession();
    Module* module = session != nullptr ? session->impl().modules.identified(pkt) : nullptr;
    if (module == nullptr) {
        reportModuleFault(std::string(call) + ": the identity is not that of a loaded application");
    }
    return module;
}

}  // namespace

AcRxDynamicLinker& dynamicLinker() {
    static AcRxDynamicLinker linker;
    return linker;
}

}  // namespace host

bool AcRxDynamicLinker::unlockApplication(void* pkt) const {
    if (host::callFails("unlockApplication")) return false;
    host::recordEffect(host::EffectKind::Registration, L"unlockApplication");
    host::Module* module = host::moduleOf(pkt, "unlockApplication");
    if (module != nullptr) module->locked = false;
    return module != nullptr;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* pkt) const {
    if (host::callFails("registerAppMDIAware")) return false;
    host::recordEffect(host::EffectKind::Registration, L"registerAppMDIAware");
    host::Module* module = host::moduleOf(pkt, "registerAppMDIAware");
    if (module != nullptr) module->mdiAware = true;
    return module != nullptr;
}
