// The table of types that can be moved and mirrored.
#include "host/transform/transform_rules.h"

#include "host/store/store.h"
#include "host/tags/tag_values.h"
#include "host/transform/transform_fields.h"

namespace host {
namespace {

template <std::size_t N>
constexpr TransformRule rule(std::string_view type, const FieldRule (&fields)[N],
                             Mirroring mirroring = Mirroring::InPlane,
                             Layout layout = Layout::Fields) {
    return {type, mirroring, layout, fields, N};
}

using namespace role;

constexpr TransformRule kRules[] = {
    rule("LINE", kLine),
    rule("POINT", kPoint),
    rule("CIRCLE", kCircle),
    rule("ARC", kArc),
    rule("ELLIPSE", kEllipse),
    rule("LWPOLYLINE", kLightPolyline),
    rule("SPLINE", kSpline),
    rule("TEXT", kText),
    rule("ATTDEF", kText),
    rule("ATTRIB", kText),
    rule("MTEXT", kMText, Mirroring::TurnsOver),
    rule("INSERT", kInsert),
    rule("DIMENSION", kDimension),
    rule("HATCH", kOnlyExtrusion, Mirroring::InPlane, Layout::Hatch),
    rule("SOLID", kSolid),
    rule("TRACE", kSolid),
    rule("3DFACE", kFace),
    rule("RAY", kRay),
    rule("XLINE", kRay),
    rule("LEADER", kLeader),
    rule("IMAGE", kImage),
    rule("WIPEOUT", kImage),
    rule("SEQEND", kOnlyExtrusion),
    rule("TOLERANCE", kTolerance, Mirroring::TurnsOver),
    rule("VIEWPORT", kOnlyPoints, Mirroring::AlongAxes),
    rule("MULTILEADER", kOnlyExtrusion, Mirroring::InPlane, Layout::Multileader),
    rule("ACAD_TABLE", kTable, Mirroring::TurnsOver),
    rule("MLINE", kMultiline, Mirroring::TurnsOver),
    rule("SHAPE", kShape),
    rule("HELIX", kHelix),
    rule("LIGHT", kLight),
    rule("SECTIONOBJECT", kSection),
    rule("PDFUNDERLAY", kUnderlay, Mirroring::TurnsOver),
    rule("DWFUNDERLAY", kUnderlay, Mirroring::TurnsOver),
    rule("DGNUNDERLAY", kUnderlay, Mirroring::TurnsOver),
    rule("MESH", kOnlyPoints),
    rule("ARC_DIMENSION", kArcDimension, Mirroring::Refused),
    rule("LARGE_RADIAL_DIMENSION", kArcDimension, Mirroring::Refused),
    rule("ACDB_LEADEROBJECTCONTEXTDATA_CLASS", kLeaderAtScale),
    rule("ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", kMTextAtScale),
    rule("ACDB_TEXTOBJECTCONTEXTDATA_CLASS", kTextAtScale, Mirroring::Refused),
    rule("ACDB_BLKREFOBJECTCONTEXTDATA_CLASS", kTextAtScale, Mirroring::Refused),
    rule("ACDB_MLEADEROBJECTCONTEXTDATA_CLASS", kOnlyExtrusion, Mirroring::InPlane,
         Layout::Multileader),
};

constexpr TransformRule kPolyline2dRule = rule("POLYLINE", kPolyline2d);
constexpr TransformRule kPolyline3dRule = rule("POLYLINE", kOnlyExtrusion);
constexpr TransformRule kVertex2dRule = rule("VERTEX", kVertex2d);
constexpr TransformRule kVertex3dRule = rule("VERTEX", kOnlyPoints);
constexpr TransformRule kFaceRecordRule = rule("VERTEX", kOnlyExtrusion);

/// What a vertex means depends on its polyline; a face of a mesh names vertices and has no place.
const TransformRule* vertexRule(const ObjectBody& vertex) {
    constexpr int kFaceRecord = 128, kMeshVertex = 64;
    if (vertex.store->at(vertex.owner).kind == Kind::Polyline2d) return &kVertex2dRule;
    const int flags = integerTag(vertex.tags(), 70);
    const bool isFace = (flags & kFaceRecord) != 0 && (flags & kMeshVertex) == 0;
    return isFace ? &kFaceRecordRule : &kVertex3dRule;
}

}  // namespace

const FieldRule* TransformRule::find(int code, std::string_view subclass) const {
    for (std::size_t i = 0; i < count; ++i) {
        const FieldRule& field = fields[i];
        if (field.code == code && (!field.thereOnly || subclass.empty() || subclass == field.addTo))
            return &field;
    }
    return nullptr;
}

const TransformRule* transformRule(const ObjectBody& body) {
    if (body.kind == Kind::Vertex) return vertexRule(body);
    if (body.kind == Kind::Polyline2d) return &kPolyline2dRule;
    if (body.kind == Kind::Polyline3d || body.kind == Kind::OtherPolyline) return &kPolyline3dRule;
    const std::string_view type = body.type();
    for (const TransformRule& each : kRules) {
        if (each.type == type) return &each;
    }
    return nullptr;
}

}  // namespace host
