// The values of an object's tags, by code: the one reader, and the edits of single values.
//
// Only the object's own tags count: outside application groups (102), before an embedded object
// (101) and extended data (1000 and up). The first with the code counts. A number that is none or
// does not fit counts as missing, and then as the standard: reals are finite, integers between
// -2147483647 and 2147483647, so that each has a negative.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/tags/tags.h"

namespace host {

/// Where a value stands: in a part of the tags, from a subclass marker (100) to the next, or
/// anywhere when no part is named. An object that has no such part, as in drawings without markers,
/// is searched as a whole.
struct FieldPlace {
    constexpr FieldPlace(int tagCode = 0) : code(tagCode) {}
    constexpr FieldPlace(std::string_view part, int tagCode, int which = 0, bool stores = false)
        : subclass(part), code(tagCode), occurrence(which), storesDefault(stores) {}

    std::string_view subclass;
    int code;
    int occurrence = 0;          ///< which part of that name: TEXT has "AcDbText" twice
    bool storesDefault = false;  ///< the tag is written even when the value is the default
};

/// The tag, or nothing.
std::optional<TagPlace> findTag(std::string_view text, const FieldPlace& place);
/// Its value as it is stored, and without blanks around it.
std::string_view rawTag(std::string_view text, const FieldPlace& place,
                        std::string_view standard = {});
std::string_view textTag(std::string_view text, const FieldPlace& place,
                         std::string_view standard = {});
int integerTag(std::string_view text, const FieldPlace& place, int standard = 0);
double realTag(std::string_view text, const FieldPlace& place, double standard = 0);
/// The handle that it names; 0 when it names none.
std::uint64_t handleTag(std::string_view text, const FieldPlace& place);

/// The number of one value.
double realOf(std::string_view value, double standard = 0);
int integerOf(std::string_view value, int standard = 0);

/// Replaces the value, or adds the tag at the end of its part or of the object's own tags.
void setTag(std::string& text, const FieldPlace& place, std::string_view value);
void setTag(std::string& text, const FieldPlace& place, int value);
/// Takes the tag away; harmless when it is absent.
void removeTag(std::string& text, const FieldPlace& place);
/// Puts the three tags of a point together at one place, that of its first or where a new tag would
/// go: readers take them as one point.
void setPointTag(std::string& text, FieldPlace place, double x, double y, double z);

/// The same for many values of one object: its own tags read once. They borrow the object's text.
class OwnTags {
  public:
    explicit OwnTags(std::string_view text);

    const std::vector<Tag>& tags() const { return m_tags; }
    std::string_view text(int code, std::string_view standard = {}) const;
    double real(int code, double standard) const { return realOf(text(code), standard); }
    int integer(int code, int standard) const { return integerOf(text(code), standard); }

  private:
    std::vector<Tag> m_tags;
};

}  // namespace host
