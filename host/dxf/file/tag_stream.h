// Tags of a DXF file, read in pieces of about a megabyte.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/dxf/file/dxf_error.h"
#include "host/dxf/file/file_access.h"
#include "host/dxf/file/progress.h"
#include "host/store/store.h"
#include "host/text/text_codec.h"

namespace host {

/// Reads one tag after the other. Accepts LF and CRLF, a byte-order mark, blanks around codes and
/// a missing last line end; leaves out comments (999). Rejects what no DXF text may hold: codes
/// that are none, lines over a megabyte, NUL bytes, text that is malformed in its encoding.
///
/// The first error ends the reading: next() is false from then on and failed() true.
class TagStream {
  public:
    /// One tag. The views are valid until the next call of next().
    struct Tag {
        int code = 0;
        std::string_view value;
        std::string_view stored;  ///< the whole tag in stored form, or empty when it is not so
    };

    /// `file` is open; `error` receives the first error and carries the file's name.
    TagStream(InputFile& file, DxfError& error, const ProgressFunction& progress);

    /// Reads the next tag; false at the end of the file or after an error.
    bool next(Tag& tag);
    /// Line of the code of the tag last read, from 1.
    long line() const { return m_line; }
    bool failed() const { return m_failed; }
    /// Line ending of the first line.
    LineEnding lineEnding() const { return m_lineEnding; }

    /// Sets the encoding that values are checked against, also those that were read before; false
    /// after an error.
    bool setEncoding(const Encoding& encoding);

    /// Notes an error at a line; always false.
    bool fail(long line, const std::string& text);

  private:
    struct LateCheck {
        long line;
        std::string value;
    };

    bool open();
    bool fill();
    bool findQuickly(std::size_t& codeEnd, std::size_t& valueEnd, int& code) const;
    bool findBoth(std::size_t& codeEnd, std::size_t& valueEnd, int& code);
    bool findLine(std::size_t begin, std::size_t& end);
    bool readCode(std::size_t begin, std::size_t end, int& code);
    bool failTooLong(long line);
    bool checkValue(std::string_view value);
    bool checkText(std::string_view value, long line);

    InputFile& m_file;
    DxfError& m_error;
    const ProgressFunction& m_progress;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;  ///< first byte not yet read
    std::size_t m_end = 0;    ///< behind the last byte in the buffer
    std::uint64_t m_bytesRead = 0;
    long m_line = 0;
    long m_nextLine = 1;
    bool m_atEnd = false;
    bool m_failed = false;
    bool m_opened = false;
    bool m_plain = true;  ///< the buffer holds neither NUL nor bytes beyond ASCII
    bool m_encodingKnown = false;
    Encoding m_encoding;
    LineEnding m_lineEnding = LineEnding::Lf;
    std::vector<LateCheck> m_lateChecks;
};

}  // namespace host
