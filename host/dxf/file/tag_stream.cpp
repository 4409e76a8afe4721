// Tags of a DXF file: lines, codes and the checks of every value.
#include "host/dxf/file/tag_stream.h"

#include <algorithm>
#include <cstring>

#include "host/tags/tags.h"

namespace host {
namespace {

constexpr std::size_t kPiece = 1 << 20;
constexpr std::size_t kLongestLine = kLongestValue + 1;  // with a carriage return
constexpr int kHighestCode = 1071;
constexpr int kComment = 999;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool isBlank(char c) { return c == ' ' || c == '\t'; }

bool startsWith(std::string_view text, std::string_view begin) {
    return text.substr(0, begin.size()) == begin;
}

/// True when there is neither a NUL nor a byte beyond ASCII; eight bytes at a time.
bool isPlain(const char* bytes, std::size_t size) {
    constexpr std::uint64_t kLow = 0x0101010101010101u;
    constexpr std::uint64_t kHigh = 0x8080808080808080u;
    std::uint64_t odd = 0;
    std::size_t i = 0;
    for (; i + 8 <= size; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes + i, 8);
        odd |= (word | (word - kLow)) & kHigh;  // a borrow can only come from a NUL
    }
    for (; i < size; ++i) {
        const unsigned char byte = static_cast<unsigned char>(bytes[i]);
        odd |= static_cast<unsigned>(byte - 1u >= 0x7Fu);
    }
    return odd == 0;
}

/// True when a code line is written as stored text has it: right-aligned in three places.
bool isStoredForm(const char* line, std::size_t length, int code) {
    return length == (code < 1000 ? 3u : 4u) && (code >= 100 || line[0] == ' ') &&
           (code >= 10 || line[1] == ' ') && line[length - 1] >= '0' && line[length - 1] <= '9';
}

/// Text for a message: short and printable.
std::string shown(std::string_view text) {
    std::string result;
    for (const char c : text.substr(0, 40)) {
        result += c >= ' ' && c != '\x7F' && (c & 0x80) == 0 ? c : '?';
    }
    return result + (text.size() > 40 ? "..." : "");
}

}  // namespace

TagStream::TagStream(InputFile& file, DxfError& error, const ProgressFunction& progress)
    : m_file(file), m_error(error), m_progress(progress) {}

bool TagStream::fail(long line, const std::string& text) {
    if (!m_failed) {
        m_error.line = line;
        m_error.text = oneLine(fromUtf8(text));
    }
    m_failed = true;
    return false;
}

/// Reads the first piece and refuses what is no ASCII DXF at all.
bool TagStream::open() {
    m_opened = true;
    if (!fill()) return false;
    std::string_view text(m_buffer.data(), m_end);
    if (text.empty()) return fail(0, "the file is empty; choose a DXF drawing");
    if (startsWith(text, "AutoCAD Binary DXF")) {
        return fail(0, "this is a binary DXF; save it as ASCII DXF 2000 or later");
    }
    if (text.size() >= 6 && startsWith(text, "AC10") && text[4] >= '0' && text[4] <= '9') {
        return fail(0, "this is a DWG drawing (" + shown(text.substr(0, 6)) +
                           "); save it as ASCII DXF 2000 or later");
    }
    if (startsWith(text, "\xFF\xFE") || startsWith(text, "\xFE\xFF")) {
        return fail(0, "this is UTF-16 text; save it as ASCII DXF 2000 or later");
    }
    if (startsWith(text, kUtf8Mark)) m_begin = kUtf8Mark.size();
    text.remove_prefix(m_begin);
    const std::size_t end = text.find('\n');
    const bool crlf = end != std::string_view::npos && end > 0 && text[end - 1] == '\r';
    m_lineEnding = crlf ? LineEnding::CrLf : LineEnding::Lf;
    return true;
}

/// Moves the unread rest to the front and reads more behind it.
bool TagStream::fill() {
    if (m_begin < m_end) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
    }
    m_end -= m_begin;
    m_begin = 0;
    // Small files get small buffers; a byte more than is expected, to see the end.
    const std::uint64_t left = m_file.size() > m_bytesRead ? m_file.size() - m_bytesRead : 0;
    const std::size_t piece = static_cast<std::size_t>(std::min<std::uint64_t>(left + 1, kPiece));
    if (m_buffer.size() - m_end < piece) m_buffer.resize(m_end + piece);
    std::string why;
    const long count = m_file.read(m_buffer.data() + m_end, piece, why);
    if (count < 0) return fail(0, "cannot be read: " + why + "; check the disk");
    m_end += static_cast<std::size_t>(count);
    m_atEnd = count == 0;
    m_bytesRead += static_cast<std::uint64_t>(count);
    m_plain = isPlain(m_buffer.data(), m_end);
    if (m_progress && m_file.size() > 0) {
        const double done = static_cast<double>(m_bytesRead) / static_cast<double>(m_file.size());
        if (!m_progress(done < 1.0 ? done : 1.0)) return fail(0, "loading was interrupted");
    }
    return true;
}

bool TagStream::failTooLong(long line) {
    return fail(line, "the line is longer than " + std::to_string(kLongestValue) +
                          " bytes; this is no sound DXF drawing");
}

/// Finds the line feed that ends the line at `begin` bytes behind m_begin (both are offsets from
/// m_begin, which fill() moves), or the end of the file. False after an error.
bool TagStream::findLine(std::size_t begin, std::size_t& end) {
    for (std::size_t searched = begin;;) {
        const char* from = m_buffer.data() + m_begin + searched;
        const char* to = m_buffer.data() + m_end;
        const void* found = from < to ? std::memchr(from, '\n', to - from) : nullptr;
        end = (found != nullptr ? static_cast<const char*>(found) : to) - m_buffer.data() - m_begin;
        if (end - begin > kLongestLine) {
            return failTooLong(m_nextLine + (begin > 0 ? 1 : 0));
        }
        if (found != nullptr || m_atEnd) return true;
        searched = end;
        if (!fill()) return false;
    }
}

bool TagStream::readCode(std::size_t begin, std::size_t end, int& code) {
    const char* at = m_buffer.data() + m_begin + begin;
    const char* stop = m_buffer.data() + m_begin + end;
    const std::string_view line(at, static_cast<std::size_t>(stop - at));
    while (at != stop && isBlank(*at))
        ++at;
    const char* digits = at;
    code = 0;
    for (; at != stop && *at >= '0' && *at <= '9' && code <= kHighestCode; ++at) {
        code = code * 10 + *at - '0';
    }
    const bool hasDigits = at != digits;
    while (at != stop && (isBlank(*at) || *at == '\r'))
        ++at;
    if (hasDigits && at == stop && code <= kHighestCode) return true;
    const std::string text = shown(trimmed(line.substr(0, line.find('\r'))));
    if (m_nextLine == 1) {
        return fail(1, "\"" + text + "\" is no group code; this is not a DXF drawing");
    }
    if (code > kHighestCode) {
        return fail(m_nextLine, "group code \"" + text + "\" is out of range (0 to 1071); " +
                                    "repair the line or save the drawing anew");
    }
    return fail(m_nextLine,
                "\"" + text + "\" is no group code; " + "repair the line or save the drawing anew");
}

bool TagStream::checkText(std::string_view value, long line) {
    if (wellFormed(value, m_encoding)) return true;
    const std::string name = m_encoding.utf8 ? "UTF-8" : m_encoding.codePage;
    return fail(line, "the text is not well-formed " + name +
                          "; save the drawing anew in its own encoding");
}

bool TagStream::checkValue(std::string_view value) {
    if (isPlain(value.data(), value.size())) return true;
    if (value.find('\0') != std::string_view::npos) {
        return fail(m_line + 1, "the line holds a NUL byte; this is no sound DXF drawing");
    }
    if (m_encodingKnown) return checkText(value, m_line + 1);
    m_lateChecks.push_back({m_line + 1, std::string(value)});
    return true;
}

bool TagStream::setEncoding(const Encoding& encoding) {
    m_encoding = encoding;
    m_encodingKnown = true;
    for (const LateCheck& check : m_lateChecks) {
        if (!checkText(check.value, check.line)) return false;
    }
    m_lateChecks.clear();
    return !m_failed;
}

/// Finds the ends of both lines of a tag when they are in the buffer and the code is a plain one.
/// Nearly every tag passes here; the others are left to findBoth().
bool TagStream::findQuickly(std::size_t& codeEnd, std::size_t& valueEnd, int& code) const {
    const char* const begin = m_buffer.data() + m_begin;
    const char* const stop = m_buffer.data() + m_end;
    if (stop - begin < 8) return false;
    const char* at = begin;
    while (*at == ' ' && at < begin + 3)
        ++at;
    const char* const digits = at;
    for (code = 0; *at >= '0' && *at <= '9' && at < digits + 4; ++at)
        code = code * 10 + *at - '0';
    if (at == digits || code > kHighestCode) return false;
    if (*at == '\r') ++at;
    if (at + 1 >= stop || *at != '\n') return false;
    const void* const found = std::memchr(at + 1, '\n', stop - at - 1);
    if (found == nullptr) return false;
    codeEnd = static_cast<std::size_t>(at - begin);
    valueEnd = static_cast<std::size_t>(static_cast<const char*>(found) - begin);
    return valueEnd - codeEnd <= kLongestLine;
}

/// Finds the ends of both lines of the next tag, reading on as needed. False at the end of the
/// file and after an error.
bool TagStream::findBoth(std::size_t& codeEnd, std::size_t& valueEnd, int& code) {
    if (!findLine(0, codeEnd)) return false;
    if (m_begin == m_end) return false;
    if (!readCode(0, codeEnd, code)) return false;
    if (m_begin + codeEnd == m_end) {
        return fail(m_nextLine,
                    "the file ends behind a group code: it is cut off; "
                    "fetch a whole copy");
    }
    return findLine(codeEnd + 1, valueEnd);
}

bool TagStream::next(Tag& tag) {
    if (m_failed || (!m_opened && !open())) return false;
    do {
        std::size_t codeEnd = 0;
        std::size_t valueEnd = 0;
        if (!findQuickly(codeEnd, valueEnd, tag.code) && !findBoth(codeEnd, valueEnd, tag.code)) {
            return false;
        }
        const char* const begin = m_buffer.data() + m_begin;
        std::string_view value(begin + codeEnd + 1, valueEnd - codeEnd - 1);
        const bool whole = m_begin + valueEnd < m_end;
        m_line = m_nextLine;
        m_nextLine += 2;
        m_begin += valueEnd + (whole ? 1 : 0);
        const bool stored = whole && isStoredForm(begin, codeEnd, tag.code) &&
                            (value.empty() || value.back() != '\r');
        tag.stored = stored ? std::string_view(begin, valueEnd + 1) : std::string_view();
        while (!value.empty() && value.back() == '\r')
            value.remove_suffix(1);
        tag.value = value;
        if (value.size() > kLongestValue) return failTooLong(m_line + 1);
    } while (tag.code == kComment);
    return m_plain || checkValue(tag.value);
}

}  // namespace host
