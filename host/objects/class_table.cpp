// The database classes: their descriptors, and which class a stored object is viewed through.
#include "host/objects/class_table.h"
#include "host/objectarx/entities.h"
#include "host/objectarx/symbol_tables.h"

/// The run-time class members of one class. Descriptors are made on first use, parents first.
#define HOST_DEFINE_CLASS(CLASS, PARENT)                             \
    AcRxClass* CLASS::desc() {                                       \
        static AcRxClass descriptor(ACRX_T(#CLASS), PARENT::desc()); \
        return &descriptor;                                          \
    }                                                                \
    AcRxClass* CLASS::isA() const { return CLASS::desc(); }

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

namespace host {

namespace {

/// View of an object that has no class of its own.
class PlainObject : public AcDbObject {
  public:
    explicit PlainObject(ObjectBody* body) : AcDbObject(body) {}
};

template <typename View>
AcDbObject* makeViewOf(ObjectBody& body) {
    return new View(&body);
}

struct ViewClass {
    AcDbObject* (*make)(ObjectBody& body);
    AcRxClass* (*descriptor)();
};

template <typename View>
constexpr ViewClass viewClass() {
    return {&makeViewOf<View>, &View::desc};
}

ViewClass classFor(Kind kind) {
    switch (kind) {
        case Kind::Object:
        case Kind::BlockBegin:
        case Kind::BlockEnd:
            return viewClass<PlainObject>();
        case Kind::Dictionary:
            return viewClass<AcDbDictionary>();
        case Kind::Xrecord:
            return viewClass<AcDbXrecord>();
        case Kind::BlockTable:
            return viewClass<AcDbBlockTable>();
        case Kind::LayerTable:
            return viewClass<AcDbLayerTable>();
        case Kind::LinetypeTable:
            return viewClass<AcDbLinetypeTable>();
        case Kind::OtherTable:
            return viewClass<AcDbSymbolTable>();
        case Kind::BlockRecord:
            return viewClass<AcDbBlockTableRecord>();
        case Kind::LayerRecord:
            return viewClass<AcDbLayerTableRecord>();
        case Kind::LinetypeRecord:
            return viewClass<AcDbLinetypeTableRecord>();
        case Kind::OtherRecord:
            return viewClass<AcDbSymbolTableRecord>();
        case Kind::Entity:
        case Kind::OtherPolyline:
        case Kind::Vertex:
            return viewClass<AcDbEntity>();
        case Kind::BlockReference:
            return viewClass<AcDbBlockReference>();
        case Kind::Attribute:
            return viewClass<AcDbAttribute>();
        case Kind::AttributeDefinition:
            return viewClass<AcDbAttributeDefinition>();
        case Kind::Text:
            return viewClass<AcDbText>();
        case Kind::Polyline2d:
            return viewClass<AcDb2dPolyline>();
        case Kind::Polyline3d:
            return viewClass<AcDb3dPolyline>();
        case Kind::SequenceEnd:
            return viewClass<AcDbSequenceEnd>();
    }
    return viewClass<PlainObject>();
}

}  // namespace

AcDbObject* makeView(ObjectBody& body) { return classFor(body.kind).make(body); }

AcRxClass* classOf(Kind kind) { return classFor(kind).descriptor(); }

}  // namespace host
