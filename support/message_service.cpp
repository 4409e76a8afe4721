// Formats messages and hands them to debugger, log file and command line.
#include "message_service.h"

#include <cstdarg>
#include <string>
#include <string_view>

#include "diagnostics.h"
#include "platform.h"

namespace {

/// The command line takes this many characters in one print.
constexpr std::size_t kLongestPrint = 132;

std::wstring formatText(const wchar_t* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = ::_vscwprintf(format, again);
    va_end(again);
    if (length <= 0) return std::wstring();
    std::wstring text;
    text.resize(static_cast<std::size_t>(length));
    return ::_vsnwprintf(&text[0], text.size(), format, arguments) < 0 ? std::wstring() : text;
}

std::wstring withOneNewline(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L'\n');
    if (first == std::wstring::npos) return L"\n";
    return text.substr(first, text.find_last_not_of(L'\n') + 1 - first) + L"\n";
}

/// Length of the next piece; a character of two UTF-16 units is not torn apart.
std::size_t pieceLength(std::wstring_view rest) {
    if (rest.size() <= kLongestPrint) return rest.size();
    const auto last = static_cast<unsigned long>(rest[kLongestPrint - 1]);
    const bool tearsPair = last >= 0xD800 && last <= 0xDBFF;
    return tearsPair ? kLongestPrint - 1 : kLongestPrint;
}

void printOnCommandLine(const std::wstring& text) {
    for (std::wstring_view rest = text; !rest.empty();) {
        const std::wstring piece(rest.substr(0, pieceLength(rest)));
        acutPrintf(L"%s", piece.c_str());
        rest.remove_prefix(piece.size());
    }
}

}  // namespace

void messageService(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const std::wstring text = formatText(format, arguments);
    va_end(arguments);
    const std::wstring prefixed = timePrefixed(text);
    if (::IsDebuggerPresent()) ::OutputDebugStringW(prefixed.c_str());
    if (G_diagnostics.logFileEnabled) logDiagnosticText(prefixed);
    printOnCommandLine(withOneNewline(text));
}
