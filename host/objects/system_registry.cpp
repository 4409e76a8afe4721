// The services that acrxSysRegistry gives out.
#include "host/objects/system_registry.h"

#include <map>
#include <string>

#include "host/control/faults.h"
#include "host/objectarx/runtime.h"

namespace {

/// Never destroyed: modules may ask for services while the process ends.
std::map<std::wstring, AcRxObject*>& services() {
    static auto& map = *new std::map<std::wstring, AcRxObject*>;
    return map;
}

}  // namespace

AcRxObject* AcRxDictionary::at(const ACHAR* key) const {
    if (host::callFails("AcRxDictionary::at")) return nullptr;
    if (key == nullptr) return nullptr;
    const auto found = services().find(key);
    return found != services().end() ? found->second : nullptr;
}

AcRxDictionary* acrxSysRegistry() {
    static AcRxDictionary& registry = *new AcRxDictionary;
    return &registry;
}

void host::registerService(const wchar_t* key, AcRxObject* service) {
    if (service != nullptr)
        services()[key] = service;
    else
        services().erase(key);
}
