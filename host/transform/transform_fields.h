// The fields of each type of entity that can be moved.
#pragma once

#include "host/transform/transform_rules.h"

namespace host::role {

inline constexpr FieldRule kLine[] = {{10, Point}, {11, Point}, {210, Extrusion}};
inline constexpr FieldRule kPoint[] = {{10, Point}, {50, AxisAngle}, {210, Extrusion}};
inline constexpr FieldRule kCircle[] = {{10, ObjectPoint}, {210, Extrusion}};
inline constexpr FieldRule kArc[] = {{10, ObjectPoint}, {50, Begin}, {51, End}, {210, Extrusion}};
inline constexpr FieldRule kEllipse[] = {
    {10, Point}, {11, Vector}, {41, BeginParameter}, {42, EndParameter}, {210, Extrusion}};
inline constexpr FieldRule kLightPolyline[] = {
    {10, PlanePoint}, {38, Height, "AcDbPolyline"}, {42, Opposite}, {210, Extrusion}};
inline constexpr FieldRule kPolyline2d[] = {{10, HeightOfPoint}, {210, Extrusion}};
inline constexpr FieldRule kVertex2d[] = {{10, ObjectPoint}, {42, Opposite}, {50, Degrees}};
// Of a viewport too: what it looks at stays, it shows that from another place of the paper.
inline constexpr FieldRule kOnlyPoints[] = {{10, Point}};
inline constexpr FieldRule kSpline[] = {
    {10, Point}, {11, Point}, {12, Vector}, {13, Vector}, {210, Extrusion}};
inline constexpr FieldRule kText[] = {{10, ObjectPoint},
                                      {11, ObjectPoint},
                                      {50, Degrees, "AcDbText"},
                                      {71, UpsideDown, "AcDbText", 0.0, true},
                                      {210, Extrusion}};
inline constexpr FieldRule kMText[] = {
    {10, Point}, {11, Vector}, {50, DirectionAngle, "AcDbMText"}, {210, Extrusion, "AcDbMText"}};
inline constexpr FieldRule kInsert[] = {{10, ObjectPoint},
                                        {42, Opposite, "AcDbBlockReference", 1.0},
                                        {45, Opposite},
                                        {50, Degrees, "AcDbBlockReference"},
                                        {210, Extrusion}};
// The angle of the rotated dimension is added by its own rule: other dimensions have none.
inline constexpr FieldRule kDimension[] = {{10, Point},       {11, ObjectPoint}, {12, ObjectPoint},
                                           {13, Point},       {14, Point},       {15, Point},
                                           {16, ObjectPoint}, {50, Degrees},     {51, AxisAngle},
                                           {52, Opposite},    {53, Degrees},     {210, Extrusion}};
inline constexpr FieldRule kSolid[] = {
    {10, ObjectPoint}, {11, ObjectPoint}, {12, ObjectPoint}, {13, ObjectPoint}, {210, Extrusion}};
inline constexpr FieldRule kFace[] = {{10, Point}, {11, Point}, {12, Point}, {13, Point}};
inline constexpr FieldRule kRay[] = {{10, Point}, {11, Vector}};
inline constexpr FieldRule kLeader[] = {
    {10, Point}, {210, Extrusion}, {211, Vector}, {212, Vector}, {213, Vector}};
inline constexpr FieldRule kImage[] = {{10, Point}, {11, Vector}, {12, Vector}};
inline constexpr FieldRule kTolerance[] = {
    {10, Point}, {11, XDirection, "AcDbFcf"}, {210, Extrusion, "AcDbFcf"}};
// Along an arc two angles say where that begins and ends; which way round is not told. A jogged
// radius has an angle too.
inline constexpr FieldRule kArcDimension[] = {{10, Point}, {11, ObjectPoint}, {12, ObjectPoint},
                                              {13, Point}, {14, Point},       {15, Point},
                                              {16, Point}, {17, Point},       {210, Extrusion}};
inline constexpr FieldRule kHelix[] = {{10, Point},  {11, Point},      {12, Vector},
                                       {13, Vector}, {210, Extrusion}, {290, Handed}};
inline constexpr FieldRule kShape[] = {{10, Point},
                                       {41, Opposite, "AcDbShape", 1.0},
                                       {50, BackDegrees, "AcDbShape"},
                                       {51, Opposite},
                                       {210, Extrusion}};
// The miters point to the left of the line as seen along the extrusion, also where mirrored.
inline constexpr FieldRule kMultiline[] = {
    {10, Point}, {11, Point}, {12, Vector}, {13, Vector}, {210, Extrusion, "AcDbMline"}};
// The clip boundary (11) is in the coordinates of the underlay.
inline constexpr FieldRule kUnderlay[] = {{10, ObjectPoint},
                                          {50, Degrees, "AcDbUnderlayReference"},
                                          {210, Extrusion, "AcDbUnderlayReference"}};
// The block with the lines and texts of a table is in the coordinates of the table.
inline constexpr FieldRule kTable[] = {{10, ObjectPoint},
                                       {11, XDirection, "AcDbTable"},
                                       {50, Degrees, "AcDbBlockReference"},
                                       {210, Extrusion, "AcDbBlockReference"}};
// The viewed side of a section is to one hand of its line.
inline constexpr FieldRule kSection[] = {{10, Vector}, {11, Chain}, {12, Chain}};
inline constexpr FieldRule kLight[] = {{10, Point}, {11, Point}};
inline constexpr FieldRule kOnlyExtrusion[] = {{210, Extrusion}};

// What an annotative entity keeps for each scale: leaders have a direction and two offsets beside
// their points, paragraph texts a direction and a position.
inline constexpr FieldRule kLeaderAtScale[] = {
    {10, Point}, {11, Vector}, {12, Vector}, {13, Vector}};
inline constexpr FieldRule kMTextAtScale[] = {{10, Vector}, {11, Point}};
// The unit of the angle (50) is not told, so that these can be moved but not mirrored.
inline constexpr FieldRule kTextAtScale[] = {{10, ObjectPoint}, {11, ObjectPoint}};

}  // namespace host::role
