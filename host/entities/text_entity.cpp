// Single-line text, and what attributes and their definitions have in common with it.
#include "host/control/switches.h"
#include "host/entities/field_setters.h"
#include "host/geometry/angles.h"
#include "host/tags/tags.h"

namespace host {
namespace {

/// The vertical mode has a place of its own in each of the three kinds of text.
const IntegerField& verticalModeOf(const ObjectBody& body) {
    if (body.kind == Kind::AttributeDefinition) return field::definitionVerticalMode;
    return body.kind == Kind::Attribute ? field::attributeVerticalMode : field::textVerticalMode;
}

/// Sets a mode; eInvalidInput for a number that is none.
Acad::ErrorStatus changeMode(const AcDbObject& object, const char* call, const IntegerField& field,
                             int mode, int last) {
    return changeField(object, call, field, mode, mode >= 0 && mode <= last);
}

}  // namespace

std::string newText(std::string_view type, std::string_view lastSubclass) {
    std::string text = storedTags({{0, type}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbText"}});
    const double at = switches().newTextPosition;
    addPointTag(text, 10, at, at, at);
    addTag(text, 40, switches().newTextHeight);
    return text += storedTags({{1, ""}, {100, lastSubclass}});
}

}  // namespace host

using namespace host;

AcGePoint3d AcDbText::position() const { return getField(body(), field::textPosition); }

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& position) {
    return changePoint(*this, "AcDbText::setPosition", field::textPosition, position);
}

double AcDbText::height() const { return getField(body(), field::textHeight); }

Acad::ErrorStatus AcDbText::setHeight(double height) {
    return changeReal(*this, "AcDbText::setHeight", field::textHeight, height);
}

double AcDbText::rotation() const { return toRadians(getField(body(), field::textRotation)); }

Acad::ErrorStatus AcDbText::setRotation(double radians) {
    return changeReal(*this, "AcDbText::setRotation", field::textRotation, toDegrees(radians));
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
    return changeMode(*this, "AcDbText::setHorizontalMode", field::horizontalMode, mode,
                      AcDb::kTextFit);
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
    return changeMode(*this, "AcDbText::setVerticalMode", verticalModeOf(body()), mode,
                      AcDb::kTextTop);
}

const ACHAR* AcDbText::textStringConst() const {
    return borrowed(getField(body(), field::textString).c_str());
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    return changeText(*this, "AcDbText::setTextString", field::textString, text);
}

const ACHAR* AcDbText::borrowed(const wchar_t* text) const {
    m_borrowed = text;
    return m_borrowed.c_str();
}
