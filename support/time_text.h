// Times as text, in the formats of wcsftime.
#pragma once

#include <string>

#include "platform.h"

/// The current local time.
std::wstring localTimeText(const wchar_t* format);
/// A moment in 100-nanosecond steps since 1601, as UTC; empty for a moment out of range.
std::wstring utcTimeText(ULONGLONG moment, const wchar_t* format);
/// The current moment in those steps.
ULONGLONG currentMoment();
