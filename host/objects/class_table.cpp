// Which class a stored object is viewed through.
#include <iterator>

#include "host/objectarx/entities.h"
#include "host/objectarx/symbol_tables.h"
#include "host/objects/class_table.h"

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

/// By kind, in the order of the kinds.
constexpr ViewClass kClasses[] = {
    viewClass<PlainObject>(),              // Object
    viewClass<AcDbDictionary>(),           // Dictionary
    viewClass<AcDbXrecord>(),              // Xrecord
    viewClass<AcDbBlockTable>(),           // BlockTable
    viewClass<AcDbLayerTable>(),           // LayerTable
    viewClass<AcDbLinetypeTable>(),        // LinetypeTable
    viewClass<AcDbSymbolTable>(),          // OtherTable
    viewClass<AcDbBlockTableRecord>(),     // BlockRecord
    viewClass<AcDbLayerTableRecord>(),     // LayerRecord
    viewClass<AcDbLinetypeTableRecord>(),  // LinetypeRecord
    viewClass<AcDbSymbolTableRecord>(),    // OtherRecord
    viewClass<PlainObject>(),              // BlockBegin
    viewClass<PlainObject>(),              // BlockEnd
    viewClass<AcDbEntity>(),               // Entity
    viewClass<AcDbBlockReference>(),       // BlockReference
    viewClass<AcDbAttribute>(),            // Attribute
    viewClass<AcDbAttributeDefinition>(),  // AttributeDefinition
    viewClass<AcDbText>(),                 // Text
    viewClass<AcDb2dPolyline>(),           // Polyline2d
    viewClass<AcDb3dPolyline>(),           // Polyline3d
    viewClass<AcDbEntity>(),               // OtherPolyline
    viewClass<AcDbEntity>(),               // Vertex
    viewClass<AcDbSequenceEnd>(),          // SequenceEnd
};
static_assert(std::size(kClasses) == static_cast<std::size_t>(Kind::SequenceEnd) + 1);

const ViewClass& classFor(Kind kind) { return kClasses[static_cast<std::size_t>(kind)]; }

}  // namespace

AcDbObject* makeView(ObjectBody& body) { return classFor(body.kind).make(body); }

AcRxClass* classOf(Kind kind) { return classFor(kind).descriptor(); }

}  // namespace host
