// Attribute definitions of blocks and attributes of placed block references.
#include "host/entities/field_setters.h"

namespace host {
namespace {

/// Tags of a new attribute or definition: those that readers of drawings expect in every one.
std::string newAttribute(std::string_view type, std::string_view subclass, bool hasPrompt) {
    std::string text = newText(type, subclass);
    addTag(text, 280, 0);  // version of the record
    if (hasPrompt) addTag(text, 3, "");
    return text += storedTags({{2, ""}, {70, "0"}});
}

bool flagIn(const ObjectBody& body, const IntegerField& field, int bit) {
    return (getField(body, field) & bit) != 0;
}

}  // namespace
}  // namespace host

using namespace host;

AcDbAttributeDefinition::AcDbAttributeDefinition()
    : AcDbAttributeDefinition(freshBody(Kind::AttributeDefinition,
                                        newAttribute("ATTDEF", "AcDbAttributeDefinition", true))) {}

const ACHAR* AcDbAttributeDefinition::tagConst() const {
    return borrowed(getField(body(), field::definitionTag).c_str());
}

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
    return changeText(*this, "AcDbAttributeDefinition::setTag", field::definitionTag, tag);
}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    return changeText(*this, "AcDbAttributeDefinition::setPrompt", field::definitionPrompt, prompt);
}

Adesk::Boolean AcDbAttributeDefinition::isInvisible() const {
    return flagIn(body(), field::definitionFlags, field::kInvisible);
}

Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(Adesk::Boolean invisible) {
    return changeFlag(*this, "AcDbAttributeDefinition::setInvisible", field::definitionFlags,
                      field::kInvisible, invisible);
}

Adesk::Boolean AcDbAttributeDefinition::isConstant() const {
    return flagIn(body(), field::definitionFlags, field::kConstant);
}

Acad::ErrorStatus AcDbAttributeDefinition::setConstant(Adesk::Boolean constant) {
    return changeFlag(*this, "AcDbAttributeDefinition::setConstant", field::definitionFlags,
                      field::kConstant, constant);
}

Acad::ErrorStatus AcDbAttributeDefinition::setVerifiable(Adesk::Boolean verifiable) {
    return changeFlag(*this, "AcDbAttributeDefinition::setVerifiable", field::definitionFlags,
                      field::kVerify, verifiable);
}

Acad::ErrorStatus AcDbAttributeDefinition::setPreset(Adesk::Boolean preset) {
    return changeFlag(*this, "AcDbAttributeDefinition::setPreset", field::definitionFlags,
                      field::kPreset, preset);
}

Acad::ErrorStatus AcDbAttributeDefinition::setFieldLength(Adesk::UInt16 length) {
    return changeField(*this, "AcDbAttributeDefinition::setFieldLength",
                       field::definitionFieldLength, int(length));
}

AcDbAttribute::AcDbAttribute()
    : AcDbAttribute(freshBody(Kind::Attribute, newAttribute("ATTRIB", "AcDbAttribute", false))) {}

const ACHAR* AcDbAttribute::tagConst() const {
    return borrowed(getField(body(), field::attributeTag).c_str());
}

Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
    return changeText(*this, "AcDbAttribute::setTag", field::attributeTag, tag);
}

Acad::ErrorStatus AcDbAttribute::setInvisible(Adesk::Boolean invisible) {
    return changeFlag(*this, "AcDbAttribute::setInvisible", field::attributeFlags,
                      field::kInvisible, invisible);
}

Acad::ErrorStatus AcDbAttribute::setFieldLength(Adesk::UInt16 length) {
    return changeField(*this, "AcDbAttribute::setFieldLength", field::attributeFieldLength,
                       int(length));
}
