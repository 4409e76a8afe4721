// The drawing check: subclass markers of the usual types, in their order.
#include "host/dxf/check/check_context.h"

namespace host {
namespace {

/// Markers that an object of a type must begin with. A second row is another class of that type.
struct MarkerOrder {
    std::string_view type;
    std::string_view markers;
};

constexpr MarkerOrder kOrders[] = {
    {"LINE", "AcDbEntity, AcDbLine"},
    {"POINT", "AcDbEntity, AcDbPoint"},
    {"CIRCLE", "AcDbEntity, AcDbCircle"},
    {"ARC", "AcDbEntity, AcDbCircle, AcDbArc"},
    {"ELLIPSE", "AcDbEntity, AcDbEllipse"},
    {"SPLINE", "AcDbEntity, AcDbSpline"},
    {"LWPOLYLINE", "AcDbEntity, AcDbPolyline"},
    {"TEXT", "AcDbEntity, AcDbText, AcDbText"},
    {"MTEXT", "AcDbEntity, AcDbMText"},
    {"HATCH", "AcDbEntity, AcDbHatch"},
    {"INSERT", "AcDbEntity, AcDbBlockReference"},
    {"INSERT", "AcDbEntity, AcDbMInsertBlock"},
    {"ATTRIB", "AcDbEntity, AcDbText, AcDbAttribute"},
    {"ATTDEF", "AcDbEntity, AcDbText, AcDbAttributeDefinition"},
    {"POLYLINE", "AcDbEntity, AcDb2dPolyline"},
    {"POLYLINE", "AcDbEntity, AcDb3dPolyline"},
    {"POLYLINE", "AcDbEntity, AcDbPolygonMesh"},
    {"POLYLINE", "AcDbEntity, AcDbPolyFaceMesh"},
    {"VERTEX", "AcDbEntity, AcDbVertex, AcDb2dVertex"},
    {"VERTEX", "AcDbEntity, AcDbVertex, AcDb3dPolylineVertex"},
    {"VERTEX", "AcDbEntity, AcDbVertex, AcDbPolygonMeshVertex"},
    {"VERTEX", "AcDbEntity, AcDbVertex, AcDbPolyFaceMeshVertex"},
    {"VERTEX", "AcDbEntity, AcDbFaceRecord"},
    {"BLOCK", "AcDbEntity, AcDbBlockBegin"},
    {"ENDBLK", "AcDbEntity, AcDbBlockEnd"},
    {"TABLE", "AcDbSymbolTable"},
    {"LAYER", "AcDbSymbolTableRecord, AcDbLayerTableRecord"},
    {"LTYPE", "AcDbSymbolTableRecord, AcDbLinetypeTableRecord"},
    {"STYLE", "AcDbSymbolTableRecord, AcDbTextStyleTableRecord"},
    {"APPID", "AcDbSymbolTableRecord, AcDbRegAppTableRecord"},
    {"DIMSTYLE", "AcDbSymbolTableRecord, AcDbDimStyleTableRecord"},
    {"VPORT", "AcDbSymbolTableRecord, AcDbViewportTableRecord"},
    {"BLOCK_RECORD", "AcDbSymbolTableRecord, AcDbBlockTableRecord"},
    {"DICTIONARY", "AcDbDictionary"},
    {"XRECORD", "AcDbXrecord"},
    {"LAYOUT", "AcDbPlotSettings, AcDbLayout"},
};

/// True when a list of markers is another one or goes on behind it.
bool beginsWith(std::string_view markers, std::string_view order) {
    return markers.substr(0, order.size()) == order &&
           (markers.size() == order.size() || markers[order.size()] == ',');
}

}  // namespace

void checkSubclasses(CheckContext& context, const ObjectSummary& summary) {
    const MarkerOrder* wanted = nullptr;
    for (const MarkerOrder& order : kOrders) {
        if (order.type != summary.type) continue;
        if (beginsWith(summary.markers, order.markers)) return;
        if (wanted == nullptr) wanted = &order;
    }
    // Of types that are not listed only the beginning is known.
    const bool entity = isEntityKind(summary.body->kind);
    if (wanted != nullptr) {
        context.error(*summary.body, "subclass markers are \"" + summary.markers +
                                         "\" in place of \"" + std::string(wanted->markers) + "\"");
    } else if (entity && !beginsWith(summary.markers, "AcDbEntity")) {
        context.error(*summary.body, "the first subclass marker is not AcDbEntity");
    }
}

}  // namespace host
