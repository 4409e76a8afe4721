// Formats messages and hands them to debugger, log file and command line.
#include "message_service.h"

#include <cstdarg>
#include <string>

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
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    return ::_vsnwprintf(&text[0], text.size(), format, arguments) < 0 ? std::wstring() : text;
}

std::wstring withOneNewline(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L'\n');
    if (first == std::wstring::npos) return L"\n";
    return text.substr(first, text.find_last_not_of(L'\n') + 1 - first) + L"\n";
}

/// Length of the next piece; a character of two UTF-16 units is not torn apart.
std::size_t pieceLength(const std::wstring& text, std::size_t start) {
    const std::size_t rest = text.size() - start;
    if (rest <= kLongestPrint) return rest;
    const auto last = static_cast<unsigned long>(text[start + kLongestPrint - 1]);
    const bool tearsPair = last >= 0xD800 && last <= 0xDBFF;
    return tearsPair ? kLongestPrint - 1 : kLongestPrint;
}

void printOnCommandLine(const std::wstring& text) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t length = pieceLength(text, start);
        acutPrintf(L"%s", text.substr(start, length).c_str());
        start += length;
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
