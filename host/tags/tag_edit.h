// An object's tags taken apart for editing, and put together again.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/geometry/affine.h"

namespace host {

/// Tags of one object with their changes. Borrows the text, which must not change meanwhile.
class TagEdit {
  public:
    explicit TagEdit(std::string_view text);

    std::size_t size() const { return m_tags.size(); }
    int code(std::size_t at) const { return m_tags[at].code; }
    std::string_view value(std::size_t at) const { return m_tags[at].value; }
    /// True for the entity's own tags: outside brackets, no marker, before extended data and
    /// embedded objects.
    bool own(std::size_t at) const { return m_tags[at].own; }
    /// First own tag with a code, or nothing.
    std::optional<std::size_t> find(int code) const;

    /// The number of a tag; 0, with the tag remembered as malformed, when it is no finite one.
    double real(std::size_t at);
    /// The point whose first coordinate stands at a tag; missing coordinates are 0.
    Vec point(std::size_t at);

    void set(std::size_t at, double number);
    void set(std::size_t at, int number);
    /// Sets a point; a coordinate that is missing is added when it is not 0.
    void setPoint(std::size_t at, const Vec& point);
    void remove(std::size_t at) { m_tags[at].removed = true; }
    /// Adds tags in stored form behind a tag.
    void addBehind(std::size_t at, std::string_view tags);
    /// The tags with all changes.
    std::string tags() const;

    /// Code of the first tag that was read as a number and is none, or that got no finite value.
    std::optional<int> malformed() const { return m_malformed; }

  private:
    struct EditedTag {
        int code;
        std::string_view value;
        bool own;
        bool changed = false;
        bool removed = false;
        std::string changedTo;
        std::string behind;
    };
    /// The tag with the coordinate `shift` codes on, before the next point of the same code.
    std::optional<std::size_t> coordinate(std::size_t at, int shift) const;

    std::vector<EditedTag> m_tags;
    std::optional<int> m_malformed;
};

}  // namespace host
