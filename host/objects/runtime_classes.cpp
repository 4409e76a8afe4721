// The run-time class tree: its root, and the descriptors of all classes.
#include <cstdlib>
#include <new>

#include "host/control/faults.h"
#include "host/objectarx/command_stack.h"
#include "host/objectarx/documents.h"
#include "host/objectarx/editor.h"
#include "host/objectarx/entities.h"
#include "host/objectarx/runtime.h"
#include "host/objectarx/symbol_tables.h"

/// The run-time class members of one class. Descriptors are made on first use, parents first.
#define HOST_DEFINE_CLASS(CLASS, PARENT)                             \
    AcRxClass* CLASS::desc() {                                       \
        static AcRxClass descriptor(ACRX_T(#CLASS), PARENT::desc()); \
        return &descriptor;                                          \
    }                                                                \
    AcRxClass* CLASS::isA() const { return CLASS::desc(); }

HOST_DEFINE_CLASS(AcRxClass, AcRxObject)
HOST_DEFINE_CLASS(AcRxDictionary, AcRxObject)
HOST_DEFINE_CLASS(AcRxDynamicLinker, AcRxObject)
HOST_DEFINE_CLASS(AcRxEventReactor, AcRxObject)
HOST_DEFINE_CLASS(AcEditorReactor, AcRxEventReactor)
HOST_DEFINE_CLASS(AcRxEvent, AcRxObject)
HOST_DEFINE_CLASS(AcEditor, AcRxEvent)
HOST_DEFINE_CLASS(AcEdCommandStack, AcRxObject)
HOST_DEFINE_CLASS(AcApDocument, AcRxObject)
HOST_DEFINE_CLASS(AcApDocManagerReactor, AcRxObject)
HOST_DEFINE_CLASS(AcApDocManager, AcRxObject)
HOST_DEFINE_CLASS(AcDbObject, AcRxObject)
HOST_DEFINE_CLASS(AcDbDictionary, AcDbObject)
HOST_DEFINE_CLASS(AcDbXrecord, AcDbObject)
HOST_DEFINE_CLASS(AcDbSymbolTable, AcDbObject)
HOST_DEFINE_CLASS(AcDbBlockTable, AcDbSymbolTable)
HOST_DEFINE_CLASS(AcDbLayerTable, AcDbSymbolTable)
HOST_DEFINE_CLASS(AcDbLinetypeTable, AcDbSymbolTable)
HOST_DEFINE_CLASS(AcDbSymbolTableRecord, AcDbObject)
HOST_DEFINE_CLASS(AcDbBlockTableRecord, AcDbSymbolTableRecord)
HOST_DEFINE_CLASS(AcDbLayerTableRecord, AcDbSymbolTableRecord)
HOST_DEFINE_CLASS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord)
HOST_DEFINE_CLASS(AcDbEntity, AcDbObject)
HOST_DEFINE_CLASS(AcDbText, AcDbEntity)
HOST_DEFINE_CLASS(AcDbAttributeDefinition, AcDbText)
HOST_DEFINE_CLASS(AcDbAttribute, AcDbText)
HOST_DEFINE_CLASS(AcDbSequenceEnd, AcDbEntity)
HOST_DEFINE_CLASS(AcDbBlockReference, AcDbEntity)
HOST_DEFINE_CLASS(AcDb2dPolyline, AcDbEntity)
HOST_DEFINE_CLASS(AcDb3dPolyline, AcDbEntity)
HOST_DEFINE_CLASS(AcDbObjectIterator, AcRxObject)
HOST_DEFINE_CLASS(AcDbBlockTableRecordIterator, AcRxObject)
#undef HOST_DEFINE_CLASS

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

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    for (const AcRxClass* own = this; own != nullptr; own = own->m_parent)
        if (own == other) return true;
    return false;
}
