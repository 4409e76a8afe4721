// The drawing check: subclass markers of the usual types, in their order.
#include "host/dxf/check/check_context.h"

namespace host {
namespace {

/// Markers that an object of a type must begin with. A second form is another class of that type.
struct MarkerOrder {
    std::string_view type;
    std::vector<std::string_view> markers;
};

const std::vector<MarkerOrder>& markerOrders() {
    static const std::vector<MarkerOrder> orders = {
        {"LINE", {"AcDbEntity", "AcDbLine"}},
        {"POINT", {"AcDbEntity", "AcDbPoint"}},
        {"CIRCLE", {"AcDbEntity", "AcDbCircle"}},
        {"ARC", {"AcDbEntity", "AcDbCircle", "AcDbArc"}},
        {"ELLIPSE", {"AcDbEntity", "AcDbEllipse"}},
        {"SPLINE", {"AcDbEntity", "AcDbSpline"}},
        {"LWPOLYLINE", {"AcDbEntity", "AcDbPolyline"}},
        {"TEXT", {"AcDbEntity", "AcDbText", "AcDbText"}},
        {"MTEXT", {"AcDbEntity", "AcDbMText"}},
        {"HATCH", {"AcDbEntity", "AcDbHatch"}},
        {"INSERT", {"AcDbEntity", "AcDbBlockReference"}},
        {"INSERT", {"AcDbEntity", "AcDbMInsertBlock"}},
        {"ATTRIB", {"AcDbEntity", "AcDbText", "AcDbAttribute"}},
        {"ATTDEF", {"AcDbEntity", "AcDbText", "AcDbAttributeDefinition"}},
        {"POLYLINE", {"AcDbEntity", "AcDb2dPolyline"}},
        {"POLYLINE", {"AcDbEntity", "AcDb3dPolyline"}},
        {"POLYLINE", {"AcDbEntity", "AcDbPolygonMesh"}},
        {"POLYLINE", {"AcDbEntity", "AcDbPolyFaceMesh"}},
        {"VERTEX", {"AcDbEntity", "AcDbVertex", "AcDb2dVertex"}},
        {"VERTEX", {"AcDbEntity", "AcDbVertex", "AcDb3dPolylineVertex"}},
        {"VERTEX", {"AcDbEntity", "AcDbVertex", "AcDbPolygonMeshVertex"}},
        {"VERTEX", {"AcDbEntity", "AcDbVertex", "AcDbPolyFaceMeshVertex"}},
        {"VERTEX", {"AcDbEntity", "AcDbFaceRecord"}},
        {"BLOCK", {"AcDbEntity", "AcDbBlockBegin"}},
        {"ENDBLK", {"AcDbEntity", "AcDbBlockEnd"}},
        {"TABLE", {"AcDbSymbolTable"}},
        {"LAYER", {"AcDbSymbolTableRecord", "AcDbLayerTableRecord"}},
        {"LTYPE", {"AcDbSymbolTableRecord", "AcDbLinetypeTableRecord"}},
        {"STYLE", {"AcDbSymbolTableRecord", "AcDbTextStyleTableRecord"}},
        {"APPID", {"AcDbSymbolTableRecord", "AcDbRegAppTableRecord"}},
        {"DIMSTYLE", {"AcDbSymbolTableRecord", "AcDbDimStyleTableRecord"}},
        {"VPORT", {"AcDbSymbolTableRecord", "AcDbViewportTableRecord"}},
        {"BLOCK_RECORD", {"AcDbSymbolTableRecord", "AcDbBlockTableRecord"}},
        {"DICTIONARY", {"AcDbDictionary"}},
        {"XRECORD", {"AcDbXrecord"}},
        {"LAYOUT", {"AcDbPlotSettings", "AcDbLayout"}},
    };
    return orders;
}

bool beginsWith(const std::vector<std::string_view>& markers,
                const std::vector<std::string_view>& order) {
    if (markers.size() < order.size()) return false;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (markers[i] != order[i]) return false;
    }
    return true;
}

std::string joined(const std::vector<std::string_view>& markers) {
    std::string text;
    for (const std::string_view marker : markers) {
        text.append(text.empty() ? "" : ", ").append(marker);
    }
    return text;
}

}  // namespace

void checkSubclasses(CheckContext& context, const ObjectSummary& summary) {
    const MarkerOrder* wanted = nullptr;
    for (const MarkerOrder& order : markerOrders()) {
        if (order.type != summary.type) continue;
        if (beginsWith(summary.markers, order.markers)) return;
        if (wanted == nullptr) wanted = &order;
    }
    // Of types that are not listed only the beginning is known.
    const bool entity = isEntityKind(summary.body->kind);
    if (wanted == nullptr && entity &&
        (summary.markers.empty() || summary.markers[0] != "AcDbEntity")) {
        context.error(*summary.body, "the first subclass marker is not AcDbEntity");
    }
    if (wanted == nullptr) return;
    context.error(*summary.body, "subclass markers are \"" + joined(summary.markers) +
                                     "\" in place of \"" + joined(wanted->markers) + "\"");
}

}  // namespace host
