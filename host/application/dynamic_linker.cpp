// The dynamic linker as modules see it: locks and the registration for several documents.
#include "host/application/session.h"
#include "host/control/accounting.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Answers a call that sets a property of the module that an identity names; false, and a fault,
/// when it names none.
bool setProperty(void* pkt, const char* call, bool Module::*property, bool value) {
    if (callFails(call)) return false;
    recordEffect(EffectKind::Registration, fromUtf8(call));
    const Session* session = currentSession();
    Module* module = session != nullptr ? session->modules.identified(pkt) : nullptr;
    if (module != nullptr)
        module->*property = value;
    else
        reportModuleFault(std::string(call) + ": the identity is not that of a loaded application");
    return module != nullptr;
}

}  // namespace

AcRxDynamicLinker& dynamicLinker() {
    static AcRxDynamicLinker linker;
    return linker;
}

}  // namespace host

bool AcRxDynamicLinker::unlockApplication(void* pkt) const {
    return host::setProperty(pkt, "unlockApplication", &host::Module::locked, false);
}

bool AcRxDynamicLinker::registerAppMDIAware(void* pkt) const {
    return host::setProperty(pkt, "registerAppMDIAware", &host::Module::mdiAware, true);
}
