// DXF tags as text: reading, writing, number forms and searches.
#include "host/tags/tags.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace host {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// Code of a tag: a short decimal number, blanks before it; `at` moves behind it. The text was
/// checked when it was loaded or made, so anything else only has to be harmless.
int readCode(const char*& at, const char* end) {
    while (at != end && isBlank(*at))
        ++at;
    const bool negative = at != end && *at == '-';
    if (negative) ++at;
    int code = 0;
    for (; at != end && *at >= '0' && *at <= '9' && code < 100000; ++at)
        code = code * 10 + *at - '0';
    return negative ? -code : code;
}

std::size_t lineEnd(std::string_view text, std::size_t from) {
    if (from >= text.size()) return text.size();
    if (text[from] == '\n') return from;  // behind a code, nearly always
    const void* found = std::memchr(text.data() + from, '\n', text.size() - from);
    return found == nullptr ? text.size() : static_cast<const char*>(found) - text.data();
}

/// Follows the brackets 102 "{NAME" ... 102 "}" of application tags.
class Brackets {
  public:
    /// True when the tag stands inside brackets or closes them; an opening one stands outside.
    bool inside(const Tag& tag) {
        if (tag.code == 102 && !tag.value.empty()) {
            if (tag.value[0] == '{') return m_depth++ > 0;
            if (tag.value[0] == '}' && m_depth > 0) {
                --m_depth;
                return true;
            }
        }
        return m_depth > 0;
    }

  private:
    int m_depth = 0;
};

}  // namespace

bool TagReader::next(Tag& tag) {
    m_begin = m_end;
    if (m_begin >= m_text.size()) return false;
    const char* at = m_text.data() + m_begin;
    tag.code = readCode(at, m_text.data() + m_text.size());
    const std::size_t codeEnd = lineEnd(m_text, static_cast<std::size_t>(at - m_text.data()));
    const std::size_t valueBegin = codeEnd < m_text.size() ? codeEnd + 1 : codeEnd;
    const std::size_t valueEnd = lineEnd(m_text, valueBegin);
    tag.value = m_text.substr(valueBegin, valueEnd - valueBegin);
    m_end = valueEnd < m_text.size() ? valueEnd + 1 : valueEnd;
    return true;
}

void addTag(std::string& text, int code, std::string_view value) {
    char digits[16];
    const char* end = std::to_chars(digits, digits + sizeof digits, code).ptr;
    const std::size_t length = static_cast<std::size_t>(end - digits);
    if (length < 3) text.append(3 - length, ' ');
    text.append(digits, length).append(1, '\n').append(value).append(1, '\n');
}

void addTag(std::string& text, int code, double value) { addTag(text, code, formatReal(value)); }

void addTag(std::string& text, int code, int value) {
    char digits[16];
    const char* end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    addTag(text, code, std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

void addHandleTag(std::string& text, int code, std::uint64_t handle) {
    addTag(text, code, formatHandle(handle));
}

void addPointTag(std::string& text, int code, double x, double y, double z) {
    addTag(text, code, x);
    addTag(text, code + 10, y);
    addTag(text, code + 20, z);
}

TagType tagTypeOf(int code) {
    struct Range {
        int last;
        TagType type;
    };
    // Each range begins behind the one before it.
    static constexpr Range ranges[] = {
        {4, TagType::Text},        {5, TagType::Handle},      {9, TagType::Text},
        {18, TagType::Point},      {59, TagType::Real},       {79, TagType::Int16},
        {89, TagType::Text},       {99, TagType::Int32},      {104, TagType::Text},
        {105, TagType::Handle},    {109, TagType::Text},      {112, TagType::Point},
        {149, TagType::Real},      {159, TagType::Text},      {169, TagType::Int64},
        {179, TagType::Int16},     {209, TagType::Text},      {210, TagType::Point},
        {239, TagType::Real},      {269, TagType::Text},      {289, TagType::Int16},
        {299, TagType::Bool},      {309, TagType::Text},      {319, TagType::Binary},
        {329, TagType::Handle},    {369, TagType::Reference}, {389, TagType::Int16},
        {399, TagType::Reference}, {409, TagType::Int16},     {419, TagType::Text},
        {429, TagType::Int32},     {439, TagType::Text},      {459, TagType::Int32},
        {469, TagType::Real},      {479, TagType::Text},      {481, TagType::Reference},
        {1003, TagType::Text},     {1004, TagType::Binary},   {1005, TagType::Handle},
        {1009, TagType::Text},     {1013, TagType::Point},    {1059, TagType::Real},
        {1070, TagType::Int16},    {1071, TagType::Int32},
    };
    if (code < 0) return TagType::Text;
    for (const Range& range : ranges) {
        if (code <= range.last) return range.type;
    }
    return TagType::Text;
}

std::optional<std::string_view> subclassPart(std::string_view text, std::string_view subclass) {
    TagReader reader(text);
    Tag tag;
    bool found = subclass.empty();
    std::size_t begin = 0;
    while (reader.next(tag)) {
        if (tag.code != 100) continue;
        if (found) return text.substr(begin, reader.begin() - begin);
        if (trimmed(tag.value) != subclass) continue;
        found = true;
        begin = reader.begin();
    }
    if (!found) return std::nullopt;
    return text.substr(begin);
}

std::optional<TagPlace> findTag(std::string_view text, int code, int occurrence) {
    TagReader reader(text);
    Tag tag;
    Brackets brackets;
    while (reader.next(tag)) {
        if (brackets.inside(tag) || tag.code != code) continue;
        if (occurrence-- == 0) return TagPlace{reader.begin(), reader.end(), tag.value};
    }
    return std::nullopt;
}

void replaceValue(std::string& text, const TagPlace& place, std::string_view value) {
    const std::size_t codeEnd = lineEnd(text, place.begin);
    // The value may be a part of the text that is being changed.
    const std::string copy(value);
    text.replace(codeEnd + 1, place.end - codeEnd - 1, copy + '\n');
}

}  // namespace host
