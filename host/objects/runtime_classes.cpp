// The root of the run-time class tree, class descriptors and the system registry.
#include <cstdlib>
#include <map>
#include <new>
#include <string>

#include "host/control/faults.h"
#include "host/objectarx/runtime.h"
#include "host/objects/system_registry.h"

namespace {

/// Never destroyed: modules may ask for services while the process ends.
std::map<std::wstring, AcRxObject*>& services() {
    static auto& map = *new std::map<std::wstring, AcRxObject*>;
    return map;
}

}  // namespace

void* AcHeapOperators::operator new(std::size_t size) {
    void* const memory = host::heapFails() ? nullptr : std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

void AcHeapOperators::operator delete(void* memory) noexcept { std::free(memory); }

AcRxObject::~AcRxObject() = default;

AcRxClass* AcRxObject::desc() {
    static AcRxClass descriptor(L"AcRxObject", nullptr);
    return &descriptor;
}

AcRxClass* AcRxObject::isA() const { return AcRxObject::desc(); }

bool AcRxObject::isKindOf(const AcRxClass* aClass) const { return isA()->isDerivedFrom(aClass); }

AcRxClass::AcRxClass(const ACHAR* name, AcRxClass* parent) : m_name(name), m_parent(parent) {}

AcRxClass* AcRxClass::desc() {
    static AcRxClass descriptor(L"AcRxClass", AcRxObject::desc());
    return &descriptor;
}

AcRxClass* AcRxClass::isA() const { return AcRxClass::desc(); }

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    for (const AcRxClass* own = this; own != nullptr; own = own->m_parent)
        if (own == other) return true;
    return false;
}

AcRxClass* AcRxDictionary::desc() {
    static AcRxClass descriptor(L"AcRxDictionary", AcRxObject::desc());
    return &descriptor;
}

AcRxClass* AcRxDictionary::isA() const { return AcRxDictionary::desc(); }

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
