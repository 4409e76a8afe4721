// Message boxes, the debugger, the environment, and time from the host's clock.
#include <time.h>
#include <unistd.h>

#include <cstdlib>

#include "host/control/clock.h"
#include "host/control/effects.h"
#include "host/control/faults.h"
#include "host/windows/lm.h"
#include "host/windows/state.h"

namespace {

using namespace host;

/// 1970 in FILETIME's steps.
constexpr ULONGLONG kUnixEpoch = 116444736000000000ULL;
constexpr ULONGLONG kStepsInSecond = 10000000ULL;

ULONGLONG stepsAt(std::time_t moment) {
    return kUnixEpoch + static_cast<ULONGLONG>(moment) * kStepsInSecond;
}

SYSTEMTIME calendarTime(const std::tm& time) {
    const auto word = [](int value) { return static_cast<WORD>(value); };
    return {
        word(time.tm_year + 1900), word(time.tm_mon + 1), word(time.tm_wday), word(time.tm_mday),
        word(time.tm_hour),        word(time.tm_min),     word(time.tm_sec),  0};
}

const char* nativeEnvironment(const std::wstring& name) {
    if (const char* const value = std::getenv(toUtf8(name).c_str())) return value;
    if (name != L"TEMP") return nullptr;
    const char* const folder = std::getenv("TMPDIR");
    return folder != nullptr ? folder : "/tmp";
}

std::optional<std::wstring> environmentValue(const std::wstring& name) {
    const auto& overrides = windowsState().environment;
    if (const auto found = overrides.find(name); found != overrides.end()) return found->second;
    const char* const value = nativeEnvironment(name);
    return value != nullptr ? std::optional<std::wstring>(fromUtf8(value)) : std::nullopt;
}

}  // namespace

int MessageBoxW(HWND, LPCWSTR text, LPCWSTR title, UINT style) {
    recordEffect(EffectKind::AlertBox,
                 std::wstring(title) + L"\n" + std::to_wstring(style) + L"\n" + text);
    return IDOK;
}

BOOL IsDebuggerPresent() { return windowsState().debuggerPresent ? TRUE : FALSE; }

void OutputDebugStringW(LPCWSTR text) {
    if (windowsState().debuggerPresent) recordEffect(EffectKind::DebugOutput, text);
}

void DebugBreak() { recordEffect(EffectKind::Breakpoint, L""); }

DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size) {
    if (callFails("GetEnvironmentVariableW")) return failWith(ERROR_GEN_FAILURE);
    const std::optional<std::wstring> value = environmentValue(name);
    return value ? giveText(*value, buffer, size) : failWith(ERROR_ENVVAR_NOT_FOUND);
}

BOOL GetComputerNameW(LPWSTR buffer, LPDWORD size) {
    char name[256] = {};
    if (callFails("GetComputerNameW") || gethostname(name, sizeof name - 1) != 0) {
        return failWith(ERROR_GEN_FAILURE);
    }
    const DWORD room = *size;
    // Windows keeps to its NetBIOS length; longer names are cut.
    *size = giveText(fromUtf8(name).substr(0, MAX_COMPUTERNAME_LENGTH), buffer, room);
    return *size < room ? TRUE : failWith(ERROR_INSUFFICIENT_BUFFER);
}

DWORD GetCurrentProcessId() { return static_cast<DWORD>(getpid()); }

void GetLocalTime(SYSTEMTIME* time) {
    const std::time_t now = clockNow();
    std::tm local = {};
    localtime_r(&now, &local);
    *time = calendarTime(local);
}

void GetSystemTimeAsFileTime(FILETIME* time) {
    const ULONGLONG steps = stepsAt(clockNow());
    *time = {static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
}

BOOL FileTimeToSystemTime(const FILETIME* fileTime, SYSTEMTIME* time) {
    const ULONGLONG steps =
        (static_cast<ULONGLONG>(fileTime->dwHighDateTime) << 32) | fileTime->dwLowDateTime;
    if (callFails("FileTimeToSystemTime")) return failWith(ERROR_GEN_FAILURE);
    const auto seconds = static_cast<std::time_t>((steps - kUnixEpoch) / kStepsInSecond);
    std::tm utc = {};
    if (steps < kUnixEpoch || gmtime_r(&seconds, &utc) == nullptr) {
        return failWith(ERROR_INVALID_PARAMETER);
    }
    *time = calendarTime(utc);
    return TRUE;
}

ULONGLONG GetTickCount64() {
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<ULONGLONG>(now.tv_sec) * 1000 +
           static_cast<ULONGLONG>(now.tv_nsec) / 1000000 + clockSlept();
}

void Sleep(DWORD milliseconds) { clockSleep(milliseconds); }

NET_API_STATUS NetStatisticsGet(LPWSTR, LPWSTR service, DWORD level, DWORD options,
                                LPBYTE* buffer) {
    *buffer = nullptr;
    if (level != 0 || options != 0) return ERROR_INVALID_PARAMETER;
    if (callFails("NetStatisticsGet")) return ERROR_GEN_FAILURE;
    const std::optional<std::time_t> start = windowsState().workstationStart;
    if (_wcsicmp(service, L"LanmanWorkstation") != 0 || !start) return NERR_ServiceNotInstalled;
    auto* const statistics = new STAT_WORKSTATION_0();
    statistics->StatisticsStartTime.QuadPart = static_cast<LONGLONG>(stepsAt(*start));
    *buffer = reinterpret_cast<LPBYTE>(statistics);
    return NERR_Success;
}

NET_API_STATUS NetApiBufferFree(LPVOID buffer) {
    delete static_cast<STAT_WORKSTATION_0*>(buffer);
    return NERR_Success;
}
