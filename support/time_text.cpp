// Times as text, from Windows' clock.
#include "time_text.h"

#include <ctime>
#include <cwchar>

namespace {

/// Longer than any time that is printed, in every language of the system.
const std::size_t kTextBufferLength = 128;

std::wstring timeText(const SYSTEMTIME& time, const wchar_t* format) {
    std::tm fields = {};
    fields.tm_year = time.wYear - 1900;
    fields.tm_mon = time.wMonth - 1;
    fields.tm_mday = time.wDay;
    fields.tm_wday = time.wDayOfWeek;
    fields.tm_hour = time.wHour;
    fields.tm_min = time.wMinute;
    fields.tm_sec = time.wSecond;
    wchar_t text[kTextBufferLength] = {};
    return std::wstring(text, std::wcsftime(text, kTextBufferLength, format, &fields));
}

}  // namespace

std::wstring localTimeText(const wchar_t* format) {
    SYSTEMTIME time = {};
    ::GetLocalTime(&time);
    return timeText(time, format);
}

std::wstring utcTimeText(ULONGLONG moment, const wchar_t* format) {
    FILETIME fileTime = {};
    fileTime.dwLowDateTime = static_cast<DWORD>(moment);
    fileTime.dwHighDateTime = static_cast<DWORD>(moment >> 32);
    SYSTEMTIME time = {};
    if (!::FileTimeToSystemTime(&fileTime, &time)) return std::wstring();
    return timeText(time, format);
}

ULONGLONG currentMoment() {
    FILETIME now = {};
    ::GetSystemTimeAsFileTime(&now);
    return (static_cast<ULONGLONG>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
}
