// DXF tags as text: reading, writing and editing. Knows nothing of entities.
//
// The stored form of every object is its tags as DXF text: the code right-aligned in three
// places, a line feed, the value, a line feed. So an object that was not changed is written with
// one copy, and whatever a drawing holds survives.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/text/numbers.h"

namespace host {

/// One tag. The value is borrowed from the text it was read from, in the drawing's encoding.
struct Tag {
    int code = 0;
    std::string_view value;
};

/// Reads tags one after the other from stored text.
class TagReader {
  public:
    explicit TagReader(std::string_view text) : m_text(text) {}
    /// Reads the next tag; false at the end.
    bool next(Tag& tag);
    /// Offset at which the tag last read begins, and at which the next one begins.
    std::size_t begin() const { return m_begin; }
    std::size_t end() const { return m_end; }

  private:
    std::string_view m_text;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

/// Appends one tag in stored form. A value must not hold a line end.
void addTag(std::string& text, int code, std::string_view value);
void addTag(std::string& text, int code, double value);
void addTag(std::string& text, int code, int value);
/// Handle as upper-case hexadecimal.
void addHandleTag(std::string& text, int code, std::uint64_t handle);
/// Three reals: code, code + 10, code + 20.
void addPointTag(std::string& text, int code, double x, double y, double z);

/// Where a tag stands in stored text.
struct TagPlace {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string_view value;
};

/// Part of an object's tags: from a subclass marker (100) to the next one. The tags before the
/// first marker are the part with an empty name. Nothing when the object has no such part.
std::optional<std::string_view> subclassPart(std::string_view text, std::string_view subclass);

/// The `occurrence`-th tag (from 0) with a code, outside 102 brackets.
std::optional<TagPlace> findTag(std::string_view text, int code, int occurrence = 0);

/// Replaces the value of the tag at `place`, which was found in `text`.
void replaceValue(std::string& text, const TagPlace& place, std::string_view value);

}  // namespace host
