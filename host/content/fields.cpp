// Reading and editing the fields of an entity in its tags.
#include "host/content/fields.h"

#include "host/store/store.h"
#include "host/store/symbol_records.h"

namespace host {
namespace {

void storeValue(ObjectBody& body, const FieldPlace& place, std::string_view value, bool isDefault) {
    const bool removes = isDefault && !place.storesDefault;
    const auto old = findTag(body.tags(), place);
    if (removes ? !old : old && old->value == value) return;
    std::string text(body.tags());
    if (removes) {
        removeTag(text, place);
    } else {
        setTag(text, place, value);
    }
    body.setTags(text);
}

}  // namespace

double getField(const ObjectBody& body, const RealField& field) {
    return realTag(body.tags(), field.place, field.fallback);
}

int getField(const ObjectBody& body, const IntegerField& field) {
    return integerTag(body.tags(), field.place, field.fallback);
}

AcGePoint3d getField(const ObjectBody& body, const PointField& field) {
    FieldPlace y = field.place, z = field.place;
    y.code += 10;
    z.code += 20;
    return {realTag(body.tags(), field.place), realTag(body.tags(), y), realTag(body.tags(), z)};
}

std::wstring getField(const ObjectBody& body, const TextField& field) {
    const auto tag = findTag(body.tags(), field.place);
    return tag ? body.decode(tag->value) : std::wstring(field.fallback);
}

void setField(ObjectBody& body, const RealField& field, double value) {
    storeValue(body, field.place, formatReal(value), value == field.fallback);
}

void setField(ObjectBody& body, const IntegerField& field, int value) {
    storeValue(body, field.place, std::to_string(value), value == field.fallback);
}

void setField(ObjectBody& body, const PointField& field, const AcGePoint3d& point) {
    std::string text(body.tags());
    setPointTag(text, field.place, point.x, point.y, point.z);
    if (text != body.tags()) body.setTags(text);
}

void setField(ObjectBody& body, const TextField& field, std::wstring_view value) {
    storeValue(body, field.place, body.encode(value), value == field.fallback);
}

bool fitsValue(const ObjectBody& body, std::wstring_view text) {
    return body.encode(text).size() <= kLongestValue;
}

void copyField(const ObjectBody& from, ObjectBody& to, const FieldPlace& place) {
    const auto tag = findTag(from.tags(), place);
    storeValue(to, place, tag ? to.encode(from.decode(tag->value)) : "", !tag);
}

bool isPaperSpace(const ObjectBody& blockRecord) {
    return isPaperSpaceName(symbolName(blockRecord));
}

void setSpaceMarks(ObjectBody& entity, bool paperSpace) {
    setField(entity, field::paperSpace, paperSpace ? 1 : 0);
    setField(entity, field::layoutName, L"");
}

}  // namespace host
