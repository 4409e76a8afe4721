// Formats messages and hands them to debugger, log file and command line.
#include "message_service.h"

#include <cstdarg>
#include <string>

#include "diagnostics.h"
#include "platform.h"

namespace {

/// The command line takes this many characters in one print.
const std::size_t kLongestPrint = 132;

std::wstring withOneNewline(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L'\n');
    if (first == std::wstring::npos) return L"\n";
    return text.substr(first, text.find_last_not_of(L'\n') + 1 - first) + L"\n";
}

/// Length of the piece that begins at `first`; a character of two UTF-16 units is not torn apart.
std::size_t pieceLength(const std::wstring& text, std::size_t first) {
    if (text.size() - first <= kLongestPrint) return text.size() - first;
    const unsigned long last = static_cast<unsigned long>(text[first + kLongestPrint - 1]);
    const bool tearsPair = last >= 0xD800 && last <= 0xDBFF;
    return tearsPair ? kLongestPrint - 1 : kLongestPrint;
}

void printOnCommandLine(const std::wstring& text) {
    for (std::size_t first = 0; first < text.size();) {
        const std::wstring piece = text.substr(first, pieceLength(text, first));
        acutPrintf(L"%s", piece.c_str());
        first += piece.size();
    }
}

}  // namespace

void messageService(const wchar_t* format, ...) {
    std::wstring text;
    va_list arguments;
    va_start(arguments, format);
    const int length = ::_vscwprintf(format, arguments);
    va_end(arguments);
    if (length > 0) {
        text.resize(static_cast<std::size_t>(length));
        va_start(arguments, format);
        if (::_vsnwprintf(&text[0], text.size(), format, arguments) < 0) text.clear();
        va_end(arguments);
    }
    const std::wstring prefixed = timePrefixed(text);
    if (::IsDebuggerPresent()) ::OutputDebugStringW(prefixed.c_str());
    if (G_diagnostics.logFileEnabled) logDiagnosticText(prefixed);
    printOnCommandLine(withOneNewline(text));
}
