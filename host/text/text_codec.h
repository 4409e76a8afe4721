// Conversion between the text of a drawing and wide characters.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// Encoding of a drawing's text: UTF-8 from AC1021 on, else a code page such as "ANSI_1252".
struct Encoding {
    std::string codePage;  ///< as $DWGCODEPAGE names it; used only when utf8 is false
    bool utf8 = true;
};

/// True when the code page is one this machine can convert.
bool encodingKnown(const Encoding& encoding);
/// True when the bytes are well-formed in the encoding.
bool wellFormed(std::string_view bytes, const Encoding& encoding);
/// Wide text; "\U+XXXX" becomes its character, malformed bytes become U+FFFD.
std::wstring decodeText(std::string_view bytes, const Encoding& encoding);
/// Bytes of the encoding; characters it lacks become "\U+XXXX", line ends become blanks.
std::string encodeText(std::wstring_view text, const Encoding& encoding);

/// Conversions that do not depend on a drawing, for paths and messages. Malformed input gives
/// U+FFFD, never a failure.
std::wstring fromUtf8(std::string_view bytes);
std::string toUtf8(std::wstring_view text);

/// Text of a file that a person wrote: UTF-16 when it begins with that byte-order mark, else UTF-8.
std::wstring fromTextFile(std::string_view bytes);

/// A message as one line of moderate length, whatever names and values of a drawing it quotes: line
/// ends and tabs become blanks, other control characters "?", and what is too long loses its
/// middle.
std::string oneLine(std::wstring_view message);

/// A line without what would steer a terminal: line ends and tabs become blanks, other control
/// characters "?".
std::wstring printable(std::wstring line);
/// The same of a text of several lines, whose line ends and tabs stay.
std::wstring printableLines(std::wstring text);

/// A text that is shown again and again: of more than 200 characters an ellipsis stands for the
/// end.
std::wstring shortened(std::wstring text);

/// Upper-cased copy for comparing symbol names and keys without regard to case.
std::wstring foldCase(std::wstring_view text);

}  // namespace host
