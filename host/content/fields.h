// What an entity's fields are: where each stands in the tags, its type and its default.
//
// What counts as a field's tag, tag_values.h says. Tags that no field names stay as they are.
#pragma once

#include <string>
#include <string_view>

#include "host/objectarx/geometry.h"
#include "host/store/object_body.h"
#include "host/tags/tag_values.h"

namespace host {

/// A value, and what it is where the tag is missing.
template <typename Value>
struct Field {
    FieldPlace place;
    Value fallback{};
};
using RealField = Field<double>;
using IntegerField = Field<int>;
using TextField = Field<std::wstring_view>;
/// Point of three reals: code, code + 10, code + 20; a missing coordinate is 0.
struct PointField {
    FieldPlace place;
};

/// Values of an object; the field's default when the tag is absent or malformed.
double getField(const ObjectBody& body, const RealField& field);
int getField(const ObjectBody& body, const IntegerField& field);
AcGePoint3d getField(const ObjectBody& body, const PointField& field);
std::wstring getField(const ObjectBody& body, const TextField& field);

/// Changes a value in place. A value that equals the default takes the tag away, unless the
/// field stores its default. No access checks. Reals must be finite.
void setField(ObjectBody& body, const RealField& field, double value);
void setField(ObjectBody& body, const IntegerField& field, int value);
void setField(ObjectBody& body, const PointField& field, const AcGePoint3d& point);
void setField(ObjectBody& body, const TextField& field, std::wstring_view value);

/// True for a text that is no longer than readers take, as the body's drawing stores it.
bool fitsValue(const ObjectBody& body, std::wstring_view text);

/// Copies one tag as it is, or its absence, between objects that may be of different drawings.
void copyField(const ObjectBody& from, ObjectBody& to, const FieldPlace& place);

/// True for *Paper_Space and its numbered siblings.
bool isPaperSpace(const ObjectBody& blockRecord);
/// Sets the space marks of an entity that comes to stand in another block: tag 67 is 1 in paper
/// space and absent elsewhere, the layout name (410) goes.
void setSpaceMarks(ObjectBody& entity, bool paperSpace);

/// The fields, in the order of the DXF tags.
namespace field {

inline constexpr IntegerField paperSpace{{"AcDbEntity", 67}, 0};
inline constexpr TextField layoutName{{"AcDbEntity", 410}, L""};
inline constexpr TextField layer{{"AcDbEntity", 8, 0, true}, L"0"};
inline constexpr TextField linetype{{"AcDbEntity", 6}, L"ByLayer"};
inline constexpr IntegerField color{{"AcDbEntity", 62}, 256};
inline constexpr FieldPlace trueColor{"AcDbEntity", 420};
inline constexpr FieldPlace colorName{"AcDbEntity", 430};
inline constexpr FieldPlace lineWeight{"AcDbEntity", 370};
inline constexpr FieldPlace linetypeScale{"AcDbEntity", 48};
inline constexpr FieldPlace visibility{"AcDbEntity", 60};

inline constexpr PointField textPosition{{"AcDbText", 10, 0, true}};
inline constexpr RealField textHeight{{"AcDbText", 40, 0, true}, 0.0};
inline constexpr TextField textString{{"AcDbText", 1, 0, true}, L""};
inline constexpr RealField textRotation{{"AcDbText", 50}, 0.0};  // degrees
inline constexpr IntegerField horizontalMode{{"AcDbText", 72}, 0};
inline constexpr IntegerField textVerticalMode{{"AcDbText", 73, 1}, 0};

inline constexpr TextField definitionPrompt{{"AcDbAttributeDefinition", 3, 0, true}, L""};
inline constexpr TextField definitionTag{{"AcDbAttributeDefinition", 2, 0, true}, L""};
inline constexpr IntegerField definitionFlags{{"AcDbAttributeDefinition", 70, 0, true}, 0};
inline constexpr IntegerField definitionFieldLength{{"AcDbAttributeDefinition", 73}, 0};
inline constexpr IntegerField definitionVerticalMode{{"AcDbAttributeDefinition", 74}, 0};

inline constexpr TextField attributeTag{{"AcDbAttribute", 2, 0, true}, L""};
inline constexpr IntegerField attributeFlags{{"AcDbAttribute", 70, 0, true}, 0};
inline constexpr IntegerField attributeFieldLength{{"AcDbAttribute", 73}, 0};
inline constexpr IntegerField attributeVerticalMode{{"AcDbAttribute", 74}, 0};

inline constexpr IntegerField attributesFollow{{"AcDbBlockReference", 66}, 0};
inline constexpr TextField blockName{{"AcDbBlockReference", 2, 0, true}, L""};
inline constexpr PointField insertionPoint{{"AcDbBlockReference", 10, 0, true}};
inline constexpr RealField scaleX{{"AcDbBlockReference", 41}, 1.0};
inline constexpr RealField scaleY{{"AcDbBlockReference", 42}, 1.0};
inline constexpr RealField scaleZ{{"AcDbBlockReference", 43}, 1.0};

/// Bits of an attribute's or definition's flags.
constexpr int kInvisible = 1;
constexpr int kConstant = 2;
constexpr int kVerify = 4;
constexpr int kPreset = 8;

}  // namespace field

}  // namespace host
