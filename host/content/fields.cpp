// Finding, reading and editing the fields of an entity in its tags.
#include "host/content/fields.h"

#include <array>

#include "host/store/store.h"
#include "host/store/symbol_records.h"
#include "host/tags/tag_walk.h"
#include "host/text/text_codec.h"

namespace host {
namespace {

/// Where a field is or, when it is nowhere, where its tag would be added.
struct Location {
    std::optional<TagPlace> tag;
    std::size_t addAt = 0;
};

/// Follows the parts of an object's tags up to the first that are not the entity's own.
class PartWalk {
  public:
    PartWalk(std::string_view text, const FieldPlace& place) : m_walk(text), m_place(place) {}

    /// Reads the next tag that may be a field; markers and brackets are passed over.
    bool next() {
        while (m_walk.next() && m_walk.zone() < TagZone::Embedded) {
            const bool marker = m_walk.role() == TagRole::Marker;
            if (marker) {
                if (m_inPart) return false;  // the part is over
                const bool named = trimmed(m_walk.value()) == m_place.subclass;
                m_inPart = named && m_count++ == m_place.occurrence;
            }
            m_last = m_walk.end();
            if (m_inPart) m_partEnd = m_last;
            if (m_walk.own() && !marker) return true;
        }
        return false;
    }
    const TagWalk& tag() const { return m_walk; }
    bool inPart() const { return m_inPart; }
    /// End of the part, or of all the entity's own tags when it has no such part.
    std::size_t addAt() const { return m_partEnd != 0 ? m_partEnd : m_last; }
    bool sawPart() const { return m_partEnd != 0; }

  private:
    TagWalk m_walk;
    const FieldPlace& m_place;
    int m_count = 0;
    bool m_inPart = false;
    std::size_t m_partEnd = 0;
    std::size_t m_last = 0;
};

Location locate(std::string_view text, const FieldPlace& place) {
    PartWalk walk(text, place);
    std::optional<TagPlace> anywhere;
    while (walk.next()) {
        if (walk.tag().code() != place.code) continue;
        if (walk.inPart()) return {walk.tag().place(), 0};
        if (!anywhere) anywhere = walk.tag().place();
    }
    return {walk.sawPart() ? std::nullopt : anywhere, walk.addAt()};
}

std::string encoded(const ObjectBody& body, std::wstring_view value) {
    return body.store != nullptr ? body.store->encode(value) : encodeText(value, Encoding());
}

std::wstring decoded(const ObjectBody& body, std::string_view value) {
    return body.store != nullptr ? body.store->decode(value) : decodeText(value, Encoding());
}

void storeValue(ObjectBody& body, const FieldPlace& place, std::string_view value, bool isDefault) {
    const bool removes = isDefault && !place.storesDefault;
    const auto old = fieldValue(body.tags(), place);
    if (removes ? !old : old == value) return;
    std::string text(body.tags());
    if (removes) {
        removeField(text, place);
    } else {
        setFieldValue(text, place, value);
    }
    body.setTags(text);
}

FieldPlace shifted(FieldPlace place, int codes) {
    place.code += codes;
    return place;
}

double realIn(const std::optional<std::string_view>& value, double fallback) {
    return value ? parseReal(*value).value_or(fallback) : fallback;
}

using Coordinates = std::array<std::optional<std::string_view>, 3>;

/// Values of the tags code, code + 10 and code + 20; each is found as locate() would find it.
Coordinates coordinatesAt(std::string_view text, const FieldPlace& place) {
    PartWalk walk(text, place);
    Coordinates inPart, anywhere;
    while (walk.next() && !(inPart[0] && inPart[1] && inPart[2])) {
        const int beyond = walk.tag().code() - place.code;
        if (beyond != 0 && beyond != 10 && beyond != 20) continue;
        auto& value = (walk.inPart() ? inPart : anywhere)[beyond / 10];
        if (!value) value = walk.tag().value();
    }
    return walk.sawPart() ? inPart : anywhere;
}

}  // namespace

std::optional<std::string_view> fieldValue(std::string_view text, const FieldPlace& place) {
    const auto tag = locate(text, place).tag;
    if (!tag) return std::nullopt;
    return tag->value;
}

void setFieldValue(std::string& text, const FieldPlace& place, std::string_view value) {
    const Location at = locate(text, place);
    if (at.tag) {
        replaceValue(text, *at.tag, value);
        return;
    }
    std::string tag;
    addTag(tag, place.code, value);
    text.insert(at.addAt, tag);
}

void removeField(std::string& text, const FieldPlace& place) {
    const auto tag = locate(text, place).tag;
    if (tag) text.erase(tag->begin, tag->end - tag->begin);
}

double getField(const ObjectBody& body, const RealField& field) {
    return realIn(fieldValue(body.tags(), field.place), field.fallback);
}

int getField(const ObjectBody& body, const IntegerField& field) {
    const auto value = fieldValue(body.tags(), field.place);
    const auto number = value ? parseInteger(*value) : std::nullopt;
    if (!number || *number < INT32_MIN || *number > INT32_MAX) return field.fallback;
    return static_cast<int>(*number);
}

AcGePoint3d getField(const ObjectBody& body, const PointField& field) {
    const Coordinates found = coordinatesAt(body.tags(), field.place);
    return {realIn(found[0], 0.0), realIn(found[1], 0.0), realIn(found[2], 0.0)};
}

std::wstring getField(const ObjectBody& body, const TextField& field) {
    const auto value = fieldValue(body.tags(), field.place);
    return value ? decoded(body, *value) : std::wstring(field.fallback);
}

void setField(ObjectBody& body, const RealField& field, double value) {
    storeValue(body, field.place, formatReal(value), value == field.fallback);
}

void setField(ObjectBody& body, const IntegerField& field, int value) {
    storeValue(body, field.place, std::to_string(value), value == field.fallback);
}

void setField(ObjectBody& body, const PointField& field, const AcGePoint3d& point) {
    std::string text(body.tags());
    // The three tags are put back together at one place: readers take them as one point.
    for (int shift : {20, 10})
        removeField(text, shifted(field.place, shift));
    const Location x = locate(text, field.place);
    const std::size_t at = x.tag ? x.tag->begin : x.addAt;
    removeField(text, field.place);
    std::string tags;
    addPointTag(tags, field.place.code, point.x, point.y, point.z);
    text.insert(at, tags);
    if (text != body.tags()) body.setTags(text);
}

void setField(ObjectBody& body, const TextField& field, std::wstring_view value) {
    storeValue(body, field.place, encoded(body, value), value == field.fallback);
}

bool fitsValue(const ObjectBody& body, std::wstring_view text) {
    return encoded(body, text).size() <= kLongestValue;
}

void copyField(const ObjectBody& from, ObjectBody& to, const FieldPlace& place) {
    const auto value = fieldValue(from.tags(), place);
    storeValue(to, place, value ? encoded(to, decoded(from, *value)) : "", !value);
}

bool isPaperSpace(const ObjectBody& blockRecord) {
    return isPaperSpaceName(symbolName(blockRecord));
}

void setSpaceMarks(ObjectBody& entity, bool paperSpace) {
    setField(entity, field::paperSpace, paperSpace ? 1 : 0);
    setField(entity, field::layoutName, L"");
}

}  // namespace host
