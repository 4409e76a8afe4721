// The tags of one entity, ready for reading by code.
#pragma once

#include <string_view>
#include <vector>

#include "host/tags/tag_walk.h"

namespace host {

/// The own tags of an object, without application brackets (102), extended data and embedded
/// objects. They borrow the object's text.
class OwnTags {
  public:
    explicit OwnTags(std::string_view text);

    const std::vector<Tag>& tags() const { return m_tags; }
    /// First value with a code, trimmed; or `standard`.
    std::string_view text(int code, std::string_view standard = {}) const;
    /// Finite number, or `standard` when it is missing or none.
    double real(int code, double standard) const;
    int integer(int code, int standard) const;

  private:
    const Tag* find(int code) const;

    std::vector<Tag> m_tags;
};

/// Number of one value; `standard` when it is no finite number.
double realOf(std::string_view value, double standard = 0);
/// The same for whole numbers of 32 bits.
int integerOf(std::string_view value, int standard = 0);

}  // namespace host
