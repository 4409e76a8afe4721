// DXF tags as text: reading, writing and editing. Knows nothing of entities.
//
// The stored form of every object is its tags as DXF text: the code right-aligned in three
// places, a line feed, the value, a line feed. So an object that was not changed is written with
// one copy, and whatever a drawing holds survives.
#pragma once

#include <cstdint>
#include <cstring>
#include <initializer_list>
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
    /// Reads the next tag; false at the end. (Here, because everything that reads calls it.)
    bool next(Tag& tag) {
        m_begin = m_end;
        if (m_begin >= m_text.size()) return false;
        std::size_t at = m_begin;
        tag.code = readCode(at);
        const std::size_t codeEnd = lineEnd(at);
        const std::size_t valueBegin = codeEnd < m_text.size() ? codeEnd + 1 : codeEnd;
        const std::size_t valueEnd = lineEnd(valueBegin);
        tag.value = m_text.substr(valueBegin, valueEnd - valueBegin);
        m_end = valueEnd < m_text.size() ? valueEnd + 1 : valueEnd;
        return true;
    }
    /// Offset at which the tag last read begins, and at which the next one begins.
    std::size_t begin() const { return m_begin; }
    std::size_t end() const { return m_end; }

  private:
    /// Code of a tag: a short decimal number, blanks before it; `at` moves behind it. The text was
    /// checked when it was loaded or made, so anything else only has to be harmless.
    int readCode(std::size_t& at) const {
        const std::size_t end = m_text.size();
        while (at != end && (m_text[at] == ' ' || m_text[at] == '\t'))
            ++at;
        const bool negative = at != end && m_text[at] == '-';
        if (negative) ++at;
        int code = 0;
        for (; at != end && m_text[at] >= '0' && m_text[at] <= '9' && code < 100000; ++at)
            code = code * 10 + m_text[at] - '0';
        return negative ? -code : code;
    }
    std::size_t lineEnd(std::size_t from) const {
        if (from >= m_text.size()) return m_text.size();
        if (m_text[from] == '\n') return from;  // behind a code, nearly always
        const void* found = std::memchr(m_text.data() + from, '\n', m_text.size() - from);
        return found == nullptr ? m_text.size() : static_cast<const char*>(found) - m_text.data();
    }

    std::string_view m_text;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

/// Longest value that readers of drawings take, in bytes as it is stored. It is refused where
/// values are made and where they are written.
inline constexpr std::size_t kLongestValue = (std::size_t{1} << 20) - 1;

/// Tags in stored form. A value must not hold a line end.
std::string storedTags(std::initializer_list<Tag> tags);
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

/// Replaces the value of the tag at `place`, which was found in `text`.
void replaceValue(std::string& text, const TagPlace& place, std::string_view value);

}  // namespace host
