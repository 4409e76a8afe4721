// The root of the run-time class tree and class descriptors.
#include <cstdlib>
#include <new>

#include "host/control/faults.h"
#include "host/objectarx/runtime.h"

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
