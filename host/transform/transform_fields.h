// The fields of each type of entity that can be moved.
#pragma once

#include "host/transform/transform_rules.h"

namespace host {

inline constexpr FieldRule kLine[] = {{10, Role::Point}, {11, Role::Point}, {210, Role::Extrusion}};
inline constexpr FieldRule kPoint[] = {
    {10, Role::Point}, {50, Role::AxisAngle}, {210, Role::Extrusion}};
inline constexpr FieldRule kCircle[] = {{10, Role::ObjectPoint}, {210, Role::Extrusion}};
inline constexpr FieldRule kArc[] = {
    {10, Role::ObjectPoint}, {50, Role::Begin}, {51, Role::End}, {210, Role::Extrusion}};
inline constexpr FieldRule kEllipse[] = {{10, Role::Point},
                                         {11, Role::Vector},
                                         {41, Role::BeginParameter},
                                         {42, Role::EndParameter},
                                         {210, Role::Extrusion}};
inline constexpr FieldRule kLightPolyline[] = {{10, Role::PlanePoint},
                                               {38, Role::Height, "AcDbPolyline"},
                                               {42, Role::Opposite},
                                               {210, Role::Extrusion}};
inline constexpr FieldRule kPolyline2d[] = {{10, Role::HeightOfPoint}, {210, Role::Extrusion}};
inline constexpr FieldRule kVertex2d[] = {
    {10, Role::ObjectPoint}, {42, Role::Opposite}, {50, Role::Degrees}};
inline constexpr FieldRule kVertex3d[] = {{10, Role::Point}};
inline constexpr FieldRule kSpline[] = {{10, Role::Point},
                                        {11, Role::Point},
                                        {12, Role::Vector},
                                        {13, Role::Vector},
                                        {210, Role::Extrusion}};
inline constexpr FieldRule kText[] = {{10, Role::ObjectPoint},
                                      {11, Role::ObjectPoint},
                                      {50, Role::Degrees, "AcDbText"},
                                      {71, Role::UpsideDown, "AcDbText", 0.0, true},
                                      {210, Role::Extrusion}};
inline constexpr FieldRule kMText[] = {{10, Role::Point},
                                       {11, Role::Vector},
                                       {50, Role::DirectionAngle, "AcDbMText"},
                                       {210, Role::Extrusion, "AcDbMText"}};
inline constexpr FieldRule kInsert[] = {{10, Role::ObjectPoint},
                                        {42, Role::Opposite, "AcDbBlockReference", 1.0},
                                        {45, Role::Opposite},
                                        {50, Role::Degrees, "AcDbBlockReference"},
                                        {210, Role::Extrusion}};
// The angle of the rotated dimension is added by its own rule: other dimensions have none.
inline constexpr FieldRule kDimension[] = {
    {10, Role::Point},       {11, Role::ObjectPoint}, {12, Role::ObjectPoint},
    {13, Role::Point},       {14, Role::Point},       {15, Role::Point},
    {16, Role::ObjectPoint}, {50, Role::Degrees},     {51, Role::AxisAngle},
    {52, Role::Opposite},    {53, Role::Degrees},     {210, Role::Extrusion}};
inline constexpr FieldRule kSolid[] = {{10, Role::ObjectPoint},
                                       {11, Role::ObjectPoint},
                                       {12, Role::ObjectPoint},
                                       {13, Role::ObjectPoint},
                                       {210, Role::Extrusion}};
inline constexpr FieldRule kFace[] = {
    {10, Role::Point}, {11, Role::Point}, {12, Role::Point}, {13, Role::Point}};
inline constexpr FieldRule kRay[] = {{10, Role::Point}, {11, Role::Vector}};
inline constexpr FieldRule kLeader[] = {{10, Role::Point},
                                        {210, Role::Extrusion},
                                        {211, Role::Vector},
                                        {212, Role::Vector},
                                        {213, Role::Vector}};
inline constexpr FieldRule kImage[] = {{10, Role::Point}, {11, Role::Vector}, {12, Role::Vector}};
inline constexpr FieldRule kTolerance[] = {
    {10, Role::Point}, {11, Role::XDirection, "AcDbFcf"}, {210, Role::Extrusion, "AcDbFcf"}};
// What a viewport looks at stays: it shows the same model from another place of the paper.
inline constexpr FieldRule kViewport[] = {{10, Role::Point}};
// Along an arc two angles say where that begins and ends; which way round is not told. A jogged
// radius has an angle too.
inline constexpr FieldRule kArcDimension[] = {
    {10, Role::Point}, {11, Role::ObjectPoint}, {12, Role::ObjectPoint},
    {13, Role::Point}, {14, Role::Point},       {15, Role::Point},
    {16, Role::Point}, {17, Role::Point},       {210, Role::Extrusion}};
inline constexpr FieldRule kHelix[] = {{10, Role::Point},      {11, Role::Point},
                                       {12, Role::Vector},     {13, Role::Vector},
                                       {210, Role::Extrusion}, {290, Role::Handed}};
inline constexpr FieldRule kShape[] = {{10, Role::Point},
                                       {41, Role::Opposite, "AcDbShape", 1.0},
                                       {50, Role::BackDegrees, "AcDbShape"},
                                       {51, Role::Opposite},
                                       {210, Role::Extrusion}};
// The miters point to the left of the line as seen along the extrusion, also where mirrored.
inline constexpr FieldRule kMultiline[] = {{10, Role::Point},
                                           {11, Role::Point},
                                           {12, Role::Vector},
                                           {13, Role::Vector},
                                           {210, Role::Extrusion, "AcDbMline"}};
// The clip boundary (11) is in the coordinates of the underlay.
inline constexpr FieldRule kUnderlay[] = {{10, Role::ObjectPoint},
                                          {50, Role::Degrees, "AcDbUnderlayReference"},
                                          {210, Role::Extrusion, "AcDbUnderlayReference"}};
// The block with the lines and texts of a table is in the coordinates of the table.
inline constexpr FieldRule kTable[] = {{10, Role::ObjectPoint},
                                       {11, Role::XDirection, "AcDbTable"},
                                       {50, Role::Degrees, "AcDbBlockReference"},
                                       {210, Role::Extrusion, "AcDbBlockReference"}};
// The viewed side of a section is to one hand of its line.
inline constexpr FieldRule kSection[] = {{10, Role::Vector}, {11, Role::Chain}, {12, Role::Chain}};
inline constexpr FieldRule kLight[] = {{10, Role::Point}, {11, Role::Point}};
inline constexpr FieldRule kOnlyExtrusion[] = {{210, Role::Extrusion}};

// What an annotative entity keeps for each scale: leaders have a direction and two offsets beside
// their points, paragraph texts a direction and a position.
inline constexpr FieldRule kLeaderAtScale[] = {
    {10, Role::Point}, {11, Role::Vector}, {12, Role::Vector}, {13, Role::Vector}};
inline constexpr FieldRule kMTextAtScale[] = {{10, Role::Vector}, {11, Role::Point}};
// The unit of the angle (50) is not told, so that these can be moved but not mirrored.
inline constexpr FieldRule kTextAtScale[] = {{10, Role::ObjectPoint}, {11, Role::ObjectPoint}};

}  // namespace host
