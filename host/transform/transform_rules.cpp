// The table of entity types that can be moved and mirrored.
#include "host/transform/transform_rules.h"

#include <iterator>

#include "host/store/body_text.h"
#include "host/store/store.h"
#include "host/tags/tags.h"

namespace host {
namespace {

constexpr FieldRule kLine[] = {{10, Role::Point}, {11, Role::Point}, {210, Role::Extrusion}};
constexpr FieldRule kPoint[] = {{10, Role::Point}, {50, Role::AxisAngle}, {210, Role::Extrusion}};
constexpr FieldRule kCircle[] = {{10, Role::ObjectPoint}, {210, Role::Extrusion}};
constexpr FieldRule kArc[] = {
    {10, Role::ObjectPoint}, {50, Role::Begin}, {51, Role::End}, {210, Role::Extrusion}};
constexpr FieldRule kEllipse[] = {{10, Role::Point},
                                  {11, Role::Vector},
                                  {41, Role::BeginParameter},
                                  {42, Role::EndParameter},
                                  {210, Role::Extrusion}};
constexpr FieldRule kLightPolyline[] = {{10, Role::PlanePoint},
                                        {38, Role::Height, "AcDbPolyline"},
                                        {42, Role::Opposite},
                                        {210, Role::Extrusion}};
constexpr FieldRule kPolyline2d[] = {{10, Role::HeightOfPoint}, {210, Role::Extrusion}};
constexpr FieldRule kVertex2d[] = {
    {10, Role::ObjectPoint}, {42, Role::Opposite}, {50, Role::Degrees}};
constexpr FieldRule kVertex3d[] = {{10, Role::Point}};
constexpr FieldRule kSpline[] = {{10, Role::Point},
                                 {11, Role::Point},
                                 {12, Role::Vector},
                                 {13, Role::Vector},
                                 {210, Role::Extrusion}};
constexpr FieldRule kText[] = {{10, Role::ObjectPoint},
                               {11, Role::ObjectPoint},
                               {50, Role::Degrees, "AcDbText"},
                               {71, Role::UpsideDown, "AcDbText"},
                               {210, Role::Extrusion}};
constexpr FieldRule kMText[] = {{10, Role::Point},
                                {11, Role::Vector},
                                {50, Role::DirectionAngle, "AcDbMText"},
                                {210, Role::Extrusion, "AcDbMText"}};
constexpr FieldRule kInsert[] = {{10, Role::ObjectPoint},
                                 {42, Role::Opposite, "AcDbBlockReference", 1.0},
                                 {45, Role::Opposite},
                                 {50, Role::Degrees, "AcDbBlockReference"},
                                 {210, Role::Extrusion}};
// The angle of the rotated dimension is added by its own rule: other dimensions have none.
constexpr FieldRule kDimension[] = {
    {10, Role::Point},       {11, Role::ObjectPoint}, {12, Role::ObjectPoint},
    {13, Role::Point},       {14, Role::Point},       {15, Role::Point},
    {16, Role::ObjectPoint}, {50, Role::Degrees},     {51, Role::AxisAngle},
    {52, Role::Opposite},    {53, Role::Degrees},     {210, Role::Extrusion}};
constexpr FieldRule kSolid[] = {{10, Role::ObjectPoint},
                                {11, Role::ObjectPoint},
                                {12, Role::ObjectPoint},
                                {13, Role::ObjectPoint},
                                {210, Role::Extrusion}};
constexpr FieldRule kFace[] = {
    {10, Role::Point}, {11, Role::Point}, {12, Role::Point}, {13, Role::Point}};
constexpr FieldRule kRay[] = {{10, Role::Point}, {11, Role::Vector}};
constexpr FieldRule kLeader[] = {{10, Role::Point},
                                 {210, Role::Extrusion},
                                 {211, Role::Vector},
                                 {212, Role::Vector},
                                 {213, Role::Vector}};
constexpr FieldRule kImage[] = {{10, Role::Point}, {11, Role::Vector}, {12, Role::Vector}};
constexpr FieldRule kTolerance[] = {{10, Role::Point}};
constexpr FieldRule kViewport[] = {{10, Role::Point}};
constexpr FieldRule kOnlyExtrusion[] = {{210, Role::Extrusion}};

template <std::size_t N>
constexpr TransformRule rule(std::string_view type, const FieldRule (&fields)[N],
                             Mirroring mirroring = Mirroring::InPlane) {
    return {type, mirroring, fields, N};
}

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
    rule("HATCH", kOnlyExtrusion),
    rule("SOLID", kSolid),
    rule("TRACE", kSolid),
    rule("3DFACE", kFace),
    rule("RAY", kRay),
    rule("XLINE", kRay),
    rule("LEADER", kLeader),
    rule("IMAGE", kImage),
    rule("WIPEOUT", kImage),
    rule("SEQEND", kOnlyExtrusion),
    rule("TOLERANCE", kTolerance, Mirroring::Refused),
    rule("VIEWPORT", kViewport, Mirroring::Refused),
};

constexpr TransformRule kPolyline2dRule = rule("POLYLINE", kPolyline2d);
constexpr TransformRule kPolyline3dRule = rule("POLYLINE", kOnlyExtrusion);
constexpr TransformRule kVertex2dRule = rule("VERTEX", kVertex2d);
constexpr TransformRule kVertex3dRule = rule("VERTEX", kVertex3d);
constexpr TransformRule kFaceRecordRule = rule("VERTEX", kOnlyExtrusion);

/// What a vertex means depends on its polyline; a face of a mesh names vertices and has no place.
const TransformRule* vertexRule(const ObjectBody& vertex) {
    constexpr long long kFaceRecord = 128, kMeshVertex = 64;
    if (vertex.store->at(vertex.owner).kind == Kind::Polyline2d) return &kVertex2dRule;
    const long long flags = integerTag(vertex.tags(), 70, 0);
    const bool isFace = (flags & kFaceRecord) != 0 && (flags & kMeshVertex) == 0;
    return isFace ? &kFaceRecordRule : &kVertex3dRule;
}

}  // namespace

const FieldRule* TransformRule::find(int code) const {
    for (std::size_t i = 0; i < count; ++i) {
        if (fields[i].code == code) return &fields[i];
    }
    return nullptr;
}

const TransformRule* transformRule(const ObjectBody& body) {
    switch (body.kind) {
        case Kind::Polyline2d:
            return &kPolyline2dRule;
        case Kind::Polyline3d:
        case Kind::OtherPolyline:
            return &kPolyline3dRule;
        case Kind::Vertex:
            return vertexRule(body);
        default:
            break;
    }
    const std::string_view type = trimmed(body.type());
    for (const TransformRule& each : kRules) {
        if (each.type == type) return &each;
    }
    return nullptr;
}

}  // namespace host
