// Diagnostics settings, assertion checks and the output of diagnostic texts.
//
// All of it is called on the host's main thread only; nothing is locked.
#pragma once

#include <string>

/// Process-wide; all off until the library's initialisation reads the per-user switches.
struct DiagnosticsSettings {
    bool assertionsEnabled;         ///< checks are reported
    bool echoEnabled;               ///< texts go to standard output and to an attached debugger
    bool logFileEnabled;            ///< texts go to the diagnostic log file
    unsigned char diagnosticLevel;  ///< 0 none, 1 assertions only, 2 full diagnostics
};

extern DiagnosticsSettings G_diagnostics;

/// The name under which a source reports its checks.
typedef const wchar_t* CheckSource;

/// A place for the checks of a function that works for several sources: its caller's.
struct CheckSite {
    CheckSource source;
    int line;
};
inline CheckSite checkSite(CheckSource source, int line) {
    const CheckSite site = {source, line};
    return site;
}
#define DIAG_HERE checkSite(DIAG_SOURCE, __LINE__)

/// Checks a condition, which is evaluated exactly once whatever the settings, so that it may be the
/// call itself; the value is the condition's. When it is false and checks are enabled, `expression`
/// is reported; execution always goes on. The source names itself by a constant:
/// `const CheckSource DIAG_SOURCE = L"VeLogging";`
#define DIAG_ASSERT(condition, expression) DIAG_ASSERT_AT(DIAG_HERE, condition, expression)
/// The same with the place to report.
#define DIAG_ASSERT_AT(site, condition, expression) \
    checkAssertion(static_cast<bool>(condition), (site), (expression))
/// The same with the condition as it stands in the source for its expression.
#define DIAG_CHECK(condition) DIAG_ASSERT(condition, DIAG_WIDE(#condition))
#define DIAG_CHECK_AT(site, condition) DIAG_ASSERT_AT(site, condition, DIAG_WIDE(#condition))
#define DIAG_WIDE(literal) DIAG_WIDE_TOKEN(literal)
#define DIAG_WIDE_TOKEN(literal) L##literal

/// What DIAG_ASSERT does: reports, then breaks into an attached debugger. Gives `holds`; throws
/// nothing.
bool checkAssertion(bool holds, const CheckSite& site, const wchar_t* expression);
/// Shows the message box, waits for it, and hands report line and call stack to diagnosticsOutput.
void reportAssertion(const wchar_t* source, int line, const wchar_t* expression);

/// Writes a text, with the time in front, to where the settings say; nothing when that is nowhere.
void diagnosticsOutput(const std::wstring& text);
/// The text behind the current local time: "[16:19:18] text".
std::wstring timePrefixed(const std::wstring& text);
/// Appends a text as it stands to the diagnostic log file, whose folder is made if need be. A
/// folder that cannot be made is an assertion.
void logDiagnosticText(const std::wstring& text);
