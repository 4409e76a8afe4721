// DXF tags as text: reading, writing, number forms and searches.
#include "host/tags/tags.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "host/tags/tag_walk.h"

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

std::optional<std::string_view> subclassPart(std::string_view text, std::string_view subclass) {
    TagWalk walk(text);
    bool found = subclass.empty();
    std::size_t begin = 0;
    while (walk.next()) {
        if (walk.role() != TagRole::Marker) continue;
        if (found) return text.substr(begin, walk.begin() - begin);
        found = trimmed(walk.value()) == subclass;
        begin = walk.begin();
    }
    if (!found) return std::nullopt;
    return text.substr(begin);
}

std::optional<TagPlace> findTag(std::string_view text, int code, int occurrence) {
    TagWalk walk(text);
    while (walk.next())
        if (walk.code() == code && walk.depth() == 0 && occurrence-- == 0) return walk.place();
    return std::nullopt;
}

void replaceValue(std::string& text, const TagPlace& place, std::string_view value) {
    const std::size_t codeEnd = lineEnd(text, place.begin);
    // The value may be a part of the text that is being changed.
    const std::string copy(value);
    text.replace(codeEnd + 1, place.end - codeEnd - 1, copy + '\n');
}

}  // namespace host
