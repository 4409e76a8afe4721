// Assertion reports and their way to message box, standard output, debugger and log file.
#include "diagnostics.h"

#include "boundary.h"
#include "call_stack.h"
#include "decimal_text.h"
#include "diagnostic_log.h"
#include "library.h"
#include "module_file.h"
#include "platform.h"
#include "time_text.h"

DiagnosticsSettings G_diagnostics = {};

namespace {

const CheckSource DIAG_SOURCE = L"Diagnostics";

/// In the narrow character set of the system; characters outside it become its default character.
std::string narrowText(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_ACP, 0, text.c_str(), length, NULL, 0, NULL, NULL);
    std::string narrow;
    narrow.resize(static_cast<std::size_t>(size));
    ::WideCharToMultiByte(CP_ACP, 0, text.c_str(), length, &narrow[0], size, NULL, NULL);
    return narrow;
}

void writeStandardOutput(const std::wstring& text) {
    const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    const std::string narrow = narrowText(text);
    DWORD written = 0;
    ::WriteFile(output, narrow.data(), static_cast<DWORD>(narrow.size()), &written, NULL);
}

/// While the report of a folder that cannot be made is on its way.
bool G_bReportingFolder = false;

}  // namespace

bool checkAssertion(bool holds, const CheckSite& site, const wchar_t* expression) {
    if (holds || !G_diagnostics.assertionsEnabled) return holds;
    // Also without memory for the report what was checked goes on.
    withinBoundary([&] { reportAssertion(site.source, site.line, expression); });
    if (::IsDebuggerPresent()) ::DebugBreak();
    return holds;
}

void reportAssertion(const wchar_t* source, int line, const wchar_t* expression) {
    const std::wstring stack = callStackText();
    const std::wstring module = moduleName(G_hCurrentModule);
    const std::wstring number = decimalText(line);
    const std::wstring report = std::wstring(source) + L"(" + number + L"): Assertion in \"" +
                                module + L"\" (" + expression + L").\n";
    const std::wstring box = L"Module : <" + module + L">\nAssertion : <" + expression +
                             L">\nFile : <" + source + L">\nLine : " + number + L"\n\n" + stack;
    ::MessageBoxW(NULL, box.c_str(), (L"Assertion Failure: " + module).c_str(), MB_ICONERROR);
    diagnosticsOutput(report);
    diagnosticsOutput(stack);
}

void diagnosticsOutput(const std::wstring& text) {
    if (!G_diagnostics.echoEnabled && !G_diagnostics.logFileEnabled) return;
    const std::wstring prefixed = timePrefixed(text);
    if (G_diagnostics.echoEnabled) {
        writeStandardOutput(prefixed);
        if (::IsDebuggerPresent()) ::OutputDebugStringW(prefixed.c_str());
    }
    if (G_diagnostics.logFileEnabled) logDiagnosticText(prefixed);
}

std::wstring timePrefixed(const std::wstring& text) {
    return localTimeText(L"[%H:%M:%S]") + L" " + text;
}

void logDiagnosticText(const std::wstring& text) {
    if (G_bReportingFolder) return;  // the report comes back here; the folder still is not there
    const bool folderIsThere = createDiagnosticsFolder();
    G_bReportingFolder = true;
    DIAG_ASSERT(folderIsThere, L"KestFile::RecursiveCreateDirectory(sDirectory)");
    G_bReportingFolder = false;
    appendToWorkingLog(text);
}
